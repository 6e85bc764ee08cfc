#pragma once

#include "support/session_setup.h"

namespace kalvex::testing {

// The five-stage network of the benchmarks and the path tests: series inductor, shunt
// capacitor, line section, shunt open stub, series capacitor.
inline Session FiveStageNetwork() {
  Session session = SessionOnLoad(36, -20, 14.2e6);
  session.ElementType = {0, SeriesInductor, ShuntCapacitor, SeriesLine, ShuntOpenStub, SeriesCapacitor};
  session.Value[1] = {0, 1.2e-6, 200};
  session.Value[2] = {0, 150e-12, 1000};
  session.Value[3] = {0, 30, 14.2e6, 75};
  session.Value[4] = {0, 45, 14.2e6, 50};
  session.Value[5] = {0, 220e-12, 1000};
  return session;
}

// The same network swept over the 20 m band, 13.5 to 15 MHz, in `points`.
inline Session FiveStageNetworkSwept(int points) {
  Session session = FiveStageNetwork();
  session.SweepStart = 13.5e6;
  session.SweepStop = 15e6;
  session.SweepPoints = points;
  return session;
}

}  // namespace kalvex::testing
