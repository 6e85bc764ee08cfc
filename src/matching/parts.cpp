#include "matching/parts.h"

#include <algorithm>
#include <cctype>

namespace kalvex {

std::vector<NetworkPart> PartsOf(const Session& session) {
  std::vector<NetworkPart> parts;
  for (int stage = 1; stage <= kLastStage; ++stage) {
    switch (session.ElementType[stage]) {
      case SeriesCapacitor: case ShuntCapacitor: parts.push_back({stage, 1, PartKind::Capacitor}); break;
      case SeriesInductor: case ShuntInductor: parts.push_back({stage, 1, PartKind::Inductor}); break;
      case SeriesLine: case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub: case ShuntOpenStub:
        parts.push_back({stage, 1, PartKind::Line});
        break;
      case ShuntSeriesLC: case SeriesParallelLC:
        parts.push_back({stage, 1, PartKind::Inductor});
        parts.push_back({stage, 3, PartKind::Capacitor});
        break;
      case SeriesResistor: case ShuntResistor: parts.push_back({stage, 1, PartKind::Resistor}); break;
      case CoaxialCable: parts.push_back({stage, 1, PartKind::Cable}); break;
      case Transformer: parts.push_back({stage, 1, PartKind::Transformer}); break;
      default: break;
    }
  }
  return parts;
}

const char* PartLetter(PartKind kind) {
  static const char* const kLetters[] = {"C", "L", "R", "LINE", "LINE", "N"};
  return kLetters[static_cast<int>(kind)];
}

std::optional<PartKind> PartKindNamed(const std::string& letter) {
  std::string upper = letter;
  std::transform(upper.begin(), upper.end(), upper.begin(), [](unsigned char c) { return std::toupper(c); });
  for (const PartKind kind : kAllPartKinds) {
    if (upper == PartLetter(kind)) return kind;
  }
  return std::nullopt;
}

std::optional<ESeries> DefaultSeries(PartKind kind) {
  switch (kind) {
    case PartKind::Capacitor: return ESeries::E24;
    case PartKind::Inductor: return ESeries::E12;
    case PartKind::Resistor: return ESeries::E96;
    case PartKind::Line: case PartKind::Cable: case PartKind::Transformer: return std::nullopt;
  }
  return std::nullopt;
}

bool HasStandardValues(PartKind kind) { return DefaultSeries(kind).has_value(); }

double& Tolerances::Of(PartKind kind) {
  switch (kind) {
    case PartKind::Capacitor: return capacitor;
    case PartKind::Inductor: return inductor;
    case PartKind::Resistor: return resistor;
    case PartKind::Line: case PartKind::Cable: return line;
    case PartKind::Transformer: return ratio;
  }
  return line;
}

double Tolerances::Of(PartKind kind) const { return const_cast<Tolerances*>(this)->Of(kind); }

}  // namespace kalvex
