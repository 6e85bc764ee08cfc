#include "matching/standard_values.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace kalvex {
namespace {

std::vector<int> Every(const std::vector<int>& finer, std::size_t step) {
  std::vector<int> coarser;
  for (std::size_t k = 0; k < finer.size(); k += step) coarser.push_back(finer[k]);
  return coarser;
}

const std::vector<int>& E24() {
  static const std::vector<int> kValues = {10, 11, 12, 13, 15, 16, 18, 20, 22, 24, 27, 30,
                                           33, 36, 39, 43, 47, 51, 56, 62, 68, 75, 82, 91};
  return kValues;
}

// 10^(k/192) to three figures, but for 9.20 where the rule gives 9.19.
const std::vector<int>& E192() {
  static const std::vector<int> kValues = [] {
    std::vector<int> values;
    for (int k = 0; k < 192; ++k) values.push_back(static_cast<int>(std::lround(100 * std::pow(10.0, k / 192.0))));
    values[185] = 920;
    return values;
  }();
  return kValues;
}

int FiguresOf(ESeries series) { return series >= ESeries::E48 ? 3 : 2; }

// figures × 10^exponent, rounded once, as the decimal text reads.
double Scaled(int figures, int exponent) {
  return exponent >= 0 ? figures * std::pow(10.0, exponent) : figures / std::pow(10.0, -exponent);
}

// The standard values of the decades around `value`, ascending.
std::vector<double> ValuesAround(double value, ESeries series) {
  const int decade = static_cast<int>(std::floor(std::log10(value)));
  std::vector<double> values;
  for (int d = decade - 1; d <= decade + 1; ++d) {
    for (const int figures : SeriesDecade(series)) values.push_back(Scaled(figures, d - FiguresOf(series) + 1));
  }
  return values;
}

// Values this close are the same standard value, whatever the text they were
// typed as or the arithmetic that made them.
constexpr double kSameValue = 1e-9;

}  // namespace

const char* SeriesName(ESeries series) {
  static const char* const kNames[] = {"E3", "E6", "E12", "E24", "E48", "E96", "E192"};
  return kNames[static_cast<int>(series)];
}

std::optional<ESeries> SeriesNamed(const std::string& name) {
  std::string upper = name;
  std::transform(upper.begin(), upper.end(), upper.begin(), [](unsigned char c) { return std::toupper(c); });
  for (const ESeries series : kAllSeries) {
    if (upper == SeriesName(series)) return series;
  }
  return std::nullopt;
}

const std::vector<int>& SeriesDecade(ESeries series) {
  static const std::vector<int> kE3 = Every(E24(), 8), kE6 = Every(E24(), 4), kE12 = Every(E24(), 2);
  static const std::vector<int> kE48 = Every(E192(), 4), kE96 = Every(E192(), 2);
  switch (series) {
    case ESeries::E3: return kE3;
    case ESeries::E6: return kE6;
    case ESeries::E12: return kE12;
    case ESeries::E24: return E24();
    case ESeries::E48: return kE48;
    case ESeries::E96: return kE96;
    case ESeries::E192: return E192();
  }
  return E192();
}

StandardNeighbours NeighboursOf(double value, ESeries series) {
  if (!(value > 0) || !std::isfinite(value)) return {value, value};
  const std::vector<double> values = ValuesAround(value, series);
  StandardNeighbours n{values.front(), values.back()};
  for (const double v : values) {
    if (v <= value * (1 + kSameValue)) n.below = v;
  }
  for (auto v = values.rbegin(); v != values.rend(); ++v) {
    if (*v >= value * (1 - kSameValue)) n.above = *v;
  }
  return n;
}

double StandardValueNear(double value, ESeries series, int steps) {
  const StandardNeighbours n = NeighboursOf(value, series);
  double v = std::log(value / n.below) <= std::log(n.above / value) ? n.below : n.above;
  for (; steps < 0; ++steps) v = NeighboursOf(v * (1 - 1e-6), series).below;
  for (; steps > 0; --steps) v = NeighboursOf(v * (1 + 1e-6), series).above;
  return v;
}

std::optional<ESeries> SmallestSeriesHolding(double value) {
  if (!(value > 0) || !std::isfinite(value)) return std::nullopt;
  for (const ESeries series : kAllSeries) {
    const StandardNeighbours n = NeighboursOf(value, series);
    if (std::fabs(n.below / value - 1) <= kSameValue) return series;
  }
  return std::nullopt;
}

}  // namespace kalvex
