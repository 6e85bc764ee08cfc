#pragma once

#include "model/session.h"

namespace kalvex::testing {

// 30 m of RG-58 as the catalogue gives it.
inline constexpr std::array<double, kSlotCount> kRG58_30m = {0, 30, 50, 0.66, 1.3807, 0.022686};

// An end-fed half-wave for 20 m, 2450 + j300 ohms, through a 49:1 transformer
// (20 uH magnetising, 0.2 uH leakage) and 30 m of RG-58, judged over
// 13.9..14.5 MHz in 21 points.
inline Session EndFedNetwork() {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = 14.2e6;
  session.SystemZ = 50;
  session.Value[0][1] = 2450;
  session.Value[0][2] = 300;
  session.ElementType[1] = Transformer;
  session.Value[1] = {0, 49, 20e-6, 0.2e-6};
  session.ElementType[2] = CoaxialCable;
  session.Value[2] = kRG58_30m;
  session.SweepStart = 13.9e6;
  session.SweepStop = 14.5e6;
  session.SweepPoints = 21;
  return session;
}

}  // namespace kalvex::testing
