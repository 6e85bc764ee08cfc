#include "matching/parts_list.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace kalvex {
namespace {

std::string Figures(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.4g", value);
  return text;
}

std::string ValueOf(const Session& session, const NetworkPart& part) {
  const auto& v = session.Value[part.stage];
  switch (part.kind) {
    case PartKind::Capacitor: return EngineeringValue(v[part.slot], "F");
    case PartKind::Inductor: return EngineeringValue(v[part.slot], "H");
    case PartKind::Resistor: return EngineeringValue(v[part.slot], "ohm");
    case PartKind::Line:
      return Figures(v[1]) + " deg at " + EngineeringValue(v[2], "Hz") + " " + EngineeringValue(v[3], "ohm");
  }
  return {};
}

std::string PartOf(const Session& session, const NetworkPart& part) {
  const int16_t type = session.ElementType[part.stage];
  const bool pair = type == ShuntSeriesLC || type == SeriesParallelLC;
  return std::string(PartName(type)) + (pair ? part.kind == PartKind::Inductor ? " L" : " C" : "");
}

}  // namespace

std::string EngineeringValue(double value, const std::string& unit) {
  static const char* const kPrefixes[] = {"f", "p", "n", "u", "m", "", "k", "M", "G", "T"};
  constexpr int kUnitIndex = 5;
  int index = kUnitIndex;
  if (value != 0 && std::isfinite(value)) {
    index += static_cast<int>(std::floor(std::log10(std::fabs(value)) / 3));
    // Rounding to four figures may carry into the next prefix: 999.96 n is 1 u.
    if (std::fabs(value) / std::pow(1000.0, index - kUnitIndex) >= 999.95) ++index;
    index = std::clamp(index, 0, static_cast<int>(std::size(kPrefixes)) - 1);
  }
  return Figures(value / std::pow(1000.0, index - kUnitIndex)) + " " + kPrefixes[index] + unit;
}

std::string PartsListCsv(const Session& session, const Tolerances& tolerances) {
  std::string csv = "stage,part,value,series,tolerance\n";
  for (const NetworkPart& part : PartsOf(session)) {
    const auto series = part.kind == PartKind::Line ? std::nullopt
                                                    : SmallestSeriesHolding(session.Value[part.stage][part.slot]);
    csv += std::to_string(part.stage) + "," + PartOf(session, part) + "," + ValueOf(session, part) + "," +
           (series ? SeriesName(*series) : "") + "," + Figures(tolerances.Of(part.kind)) + " %\n";
  }
  return csv;
}

}  // namespace kalvex
