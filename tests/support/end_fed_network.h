#pragma once

#include "model/session.h"

namespace kalvex::testing {

// An end-fed half-wave for 20 m, 2450 + j300 ohms, through a 49:1 transformer
// (20 uH magnetising, 0.2 uH leakage) and 30 m of RG-58, over 13.9..14.5 MHz.
inline Session EndFedNetwork() {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = 14.2e6;
  session.Value[0] = {0, 2450, 300};
  session.ElementType = {0, Transformer, CoaxialCable};
  session.Value[1] = {0, 49, 20e-6, 0.2e-6};
  session.Value[2] = {0, 30, 50, 0.66, 1.3807, 0.022686};
  session.SweepStart = 13.9e6;
  session.SweepStop = 14.5e6;
  session.SweepPoints = 21;
  return session;
}

}  // namespace kalvex::testing
