#pragma once

#include <string>
#include <vector>

#include "support/session_setup.h"

namespace kalvex::testing {

// Band matches that a local search started anywhere misses: several free
// parts, wide bands, loads far from the system impedance. Each starts from
// plain mid-range values, not from a good network.
struct HardMatch {
  std::string name;
  Session session;
  std::vector<int> free;
  bool freeImpedances = false;
};

inline Session LadderOnLoad(double r, double x, double frequency, double start, double stop, int points,
                            std::vector<int16_t> types) {
  Session session = SessionOnLoad(r, x, frequency);
  SweepOver(session, start, stop, points);
  const double omega = 2 * 3.141592653589793 * frequency;
  for (std::size_t k = 0; k < types.size(); ++k) {
    const int s = static_cast<int>(k) + 1;
    session.ElementType[s] = types[k];
    switch (types[k]) {
      case SeriesCapacitor: case ShuntCapacitor: session.Value[s] = {0, 1 / (omega * 50), 0}; break;
      case SeriesInductor: case ShuntInductor: session.Value[s] = {0, 50 / omega, 0}; break;
      default: session.Value[s] = {0, 45, frequency, 50}; break;
    }
  }
  return session;
}

inline std::vector<HardMatch> HardMatches(int points = 201) {
  return {
      {"5 parts, 10-j30 ohms, 12-16 MHz",
       LadderOnLoad(10, -30, 14e6, 12e6, 16e6, points,
                    {SeriesInductor, ShuntCapacitor, SeriesInductor, ShuntCapacitor, SeriesInductor}),
       {1, 2, 3, 4, 5}},
      {"5 parts high-pass, 10-j30 ohms, 12-16 MHz",
       LadderOnLoad(10, -30, 14e6, 12e6, 16e6, points,
                    {ShuntInductor, SeriesCapacitor, ShuntInductor, SeriesCapacitor, ShuntInductor}),
       {1, 2, 3, 4, 5}},
      {"4 parts, 12+j25 ohms, 144-148 MHz",
       LadderOnLoad(12, 25, 146e6, 144e6, 148e6, points,
                    {ShuntCapacitor, SeriesInductor, ShuntCapacitor, SeriesInductor}),
       {1, 2, 3, 4}},
      {"4 parts, 300-j200 ohms, 130-160 MHz",
       LadderOnLoad(300, -200, 146e6, 130e6, 160e6, points,
                    {SeriesCapacitor, ShuntInductor, SeriesInductor, ShuntCapacitor}),
       {1, 2, 3, 4}},
      {"2 lines and 2 stubs, 200+j100 ohms, 7-9 MHz",
       LadderOnLoad(200, 100, 8e6, 7e6, 9e6, points, {SeriesLine, ShuntShortedStub, SeriesLine, ShuntOpenStub}),
       {1, 2, 3, 4},
       true},
      {"5 parts, 3+j5 ohms, 3.5-4 MHz",
       LadderOnLoad(3, 5, 3.75e6, 3.5e6, 4e6, points,
                    {ShuntCapacitor, SeriesInductor, ShuntCapacitor, SeriesInductor, ShuntCapacitor}),
       {1, 2, 3, 4, 5}},
  };
}

}  // namespace kalvex::testing
