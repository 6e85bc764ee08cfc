#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kalvex {

// The preferred-number series of IEC 60063 that parts are sold in. E3..E24
// keep their historical rounded values (2.7, 3.0, 3.3, ... 8.2, 9.1), E48..E192
// their three-figure ones.
enum class ESeries { E3, E6, E12, E24, E48, E96, E192 };

inline constexpr ESeries kAllSeries[] = {ESeries::E3,  ESeries::E6,  ESeries::E12, ESeries::E24,
                                         ESeries::E48, ESeries::E96, ESeries::E192};

const char* SeriesName(ESeries series);                      // "E24"
std::optional<ESeries> SeriesNamed(const std::string& name);  // "E24" or "e24"

// One decade of a series as whole numbers of its significant figures: 10..82
// for E12, 100..976 for E96.
const std::vector<int>& SeriesDecade(ESeries series);

// The standard values next to `value` (positive and finite, any decade): the
// largest at or below it and the smallest at or above it, both the value
// itself when it is in the series. Each standard value is the double nearest
// its decimal text (2.7e-12, not 27 × 1e-13).
struct StandardNeighbours {
  double below = 0;
  double above = 0;
};
StandardNeighbours NeighboursOf(double value, ESeries series);

// The standard value `steps` places from `value`'s neighbours: 0 is the
// nearer of the two (on a log scale), -1 the one below that, +1 the one above.
double StandardValueNear(double value, ESeries series, int steps = 0);

// The smallest series that holds `value`, or nothing for a value in none.
std::optional<ESeries> SmallestSeriesHolding(double value);

}  // namespace kalvex
