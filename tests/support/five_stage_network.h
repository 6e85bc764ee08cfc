#pragma once

#include "support/session_setup.h"

namespace kalvex::testing {

// The five-stage network of the benchmarks and the path tests: series inductor, shunt
// capacitor, line section, shunt open stub, series capacitor.
inline Session FiveStageNetwork() {
  return WithStages(SessionOnLoad(36, -20, 14.2e6),
                    {{SeriesInductor, {0, 1.2e-6, 200}}, {ShuntCapacitor, {0, 150e-12, 1000}},
                     {SeriesLine, {0, 30, 14.2e6, 75}}, {ShuntOpenStub, {0, 45, 14.2e6, 50}},
                     {SeriesCapacitor, {0, 220e-12, 1000}}});
}

// The same network swept over the 20 m band, 13.5 to 15 MHz, in `points`.
inline Session FiveStageNetworkSwept(int points) {
  Session session = FiveStageNetwork();
  SweepOver(session, 13.5e6, 15e6, points);
  return session;
}

}  // namespace kalvex::testing
