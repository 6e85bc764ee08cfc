#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/session_setup.h"

namespace kalvex::testing {

// Band matches that a local search started anywhere misses: several free
// parts, wide bands, loads far from the system impedance.
struct HardMatch {
  std::string name;
  Session session;
  std::vector<int> free;
  bool freeImpedances = false;
};

// A ladder of `types` on r + jx, every stage free, each starting from a plain
// mid-range value, not from a good network.
inline HardMatch Ladder(std::string name, double r, double x, double frequency, double start, double stop,
                        int points, std::vector<int16_t> types, bool freeImpedances = false) {
  HardMatch hard{std::move(name), SessionOnLoad(r, x, frequency), {}, freeImpedances};
  SweepOver(hard.session, start, stop, points);
  const double omega = 2 * 3.141592653589793 * frequency;
  for (std::size_t k = 0; k < types.size(); ++k) {
    const int s = static_cast<int>(k) + 1;
    hard.free.push_back(s);
    hard.session.ElementType[s] = types[k];
    switch (types[k]) {
      case SeriesCapacitor: case ShuntCapacitor: hard.session.Value[s] = {0, 1 / (omega * 50), 0}; break;
      case SeriesInductor: case ShuntInductor: hard.session.Value[s] = {0, 50 / omega, 0}; break;
      default: hard.session.Value[s] = {0, 45, frequency, 50}; break;
    }
  }
  return hard;
}

inline std::vector<HardMatch> HardMatches(int points = 201) {
  return {
      Ladder("5 parts, 10-j30 ohms, 12-16 MHz", 10, -30, 14e6, 12e6, 16e6, points,
             {SeriesInductor, ShuntCapacitor, SeriesInductor, ShuntCapacitor, SeriesInductor}),
      Ladder("5 parts high-pass, 10-j30 ohms, 12-16 MHz", 10, -30, 14e6, 12e6, 16e6, points,
             {ShuntInductor, SeriesCapacitor, ShuntInductor, SeriesCapacitor, ShuntInductor}),
      Ladder("4 parts, 12+j25 ohms, 144-148 MHz", 12, 25, 146e6, 144e6, 148e6, points,
             {ShuntCapacitor, SeriesInductor, ShuntCapacitor, SeriesInductor}),
      Ladder("4 parts, 300-j200 ohms, 130-160 MHz", 300, -200, 146e6, 130e6, 160e6, points,
             {SeriesCapacitor, ShuntInductor, SeriesInductor, ShuntCapacitor}),
      Ladder("2 lines and 2 stubs, 200+j100 ohms, 7-9 MHz", 200, 100, 8e6, 7e6, 9e6, points,
             {SeriesLine, ShuntShortedStub, SeriesLine, ShuntOpenStub}, true),
      Ladder("5 parts, 3+j5 ohms, 3.5-4 MHz", 3, 5, 3.75e6, 3.5e6, 4e6, points,
             {ShuntCapacitor, SeriesInductor, ShuntCapacitor, SeriesInductor, ShuntCapacitor}),
  };
}

}  // namespace kalvex::testing
