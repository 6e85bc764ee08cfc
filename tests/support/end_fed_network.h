#pragma once

#include "support/session_setup.h"

namespace kalvex::testing {

// An end-fed half-wave for 20 m, 2450 + j300 ohms, through a 49:1 transformer
// (20 uH magnetising, 0.2 uH leakage) and 30 m of RG-58, over 13.9..14.5 MHz.
inline Session EndFedNetwork() {
  Session session = WithStages(SessionOnLoad(2450, 300, 14.2e6), {{Transformer, {0, 49, 20e-6, 0.2e-6}},
                                                                  {CoaxialCable, {0, 30, 50, 0.66, 1.3807, 0.022686}}});
  SweepOver(session, 13.9e6, 14.5e6, 21);
  return session;
}

}  // namespace kalvex::testing
