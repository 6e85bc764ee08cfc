#include "matching/search_space.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "model/elements.h"
#include "model/feed_parts.h"

namespace kalvex {
namespace {

constexpr double kSmallestReactance = 0.01;  // times the system impedance
constexpr double kLargestReactance = 100;
constexpr double kLowestLineZ = 20;
constexpr double kHighestLineZ = 150;
constexpr double kNegligibleDegrees = 1;
constexpr double kSpeedOfLight = 299'792'458;  // m/s

struct Range {
  double low;
  double high;
};

enum class PartKind { Capacitor, Inductor, Resistor, LineLength, LineImpedance, CableLength, Ratio };

// What the Design page accepts for each kind of value.
Range WideRange(PartKind kind) {
  switch (kind) {
    case PartKind::Capacitor: return {1e-12, 1e-3};
    case PartKind::Inductor: return {1e-12, 1};
    case PartKind::Resistor: return {1, 1e6};
    case PartKind::LineLength: return {0.01, 360};
    case PartKind::LineImpedance: return {1, 1000};
    case PartKind::CableLength: return {0.01, 1000};  // metres
    case PartKind::Ratio: return {1.0 / 100, 100};
  }
  return {0, 0};
}

Range PracticalRange(PartKind kind, double omega, double z0) {
  const Range reactance{kSmallestReactance * z0, kLargestReactance * z0};
  switch (kind) {
    case PartKind::Capacitor: return {1 / (omega * reactance.high), 1 / (omega * reactance.low)};
    case PartKind::Inductor: return {reactance.low / omega, reactance.high / omega};
    case PartKind::Resistor: return reactance;
    case PartKind::LineLength: return WideRange(kind);
    case PartKind::LineImpedance: return {kLowestLineZ, kHighestLineZ};
    case PartKind::CableLength: case PartKind::Ratio: return WideRange(kind);
  }
  return {0, 0};
}

// A feed line's length is set by where the antenna is: a lossy cable left
// free over its whole range "matches" by growing until its loss hides the
// mismatch. Half a wavelength either side of its length already turns the
// load seen through it all the way round the chart, at much the same loss.
Range CableLengthRange(const CableSlots& cable, double f) {
  const Range wide = WideRange(PartKind::CableLength);
  if (!(f > 0) || !(cable.velocityFactor > 0)) return wide;
  const double halfWave = kSpeedOfLight * cable.velocityFactor / f / 2;
  const double start = std::clamp(cable.lengthMetres, wide.low, wide.high);
  return {std::max(wide.low, start - halfWave), std::min(wide.high, start + halfWave)};
}

bool IsLineOrStub(int16_t type) { return type >= SeriesLine && type <= ShuntOpenStub; }

}  // namespace

double SearchVariable::ToSearch(double value) const {
  const double clamped = std::clamp(std::isfinite(value) && value > 0 ? value : std::sqrt(low * high), low, high);
  return logarithmic ? std::log10(clamped) : clamped;
}

double SearchVariable::FromSearch(double x) const { return logarithmic ? std::pow(10.0, x) : x; }

std::vector<SearchVariable> SearchVariables(const Session& session, const std::vector<int>& stages,
                                            bool freeImpedances, bool wide) {
  const double omega = 2 * std::numbers::pi * session.Frequency;
  std::vector<SearchVariable> variables;
  auto add = [&](int stage, int slot, PartKind kind) {
    Range range = WideRange(kind);
    if (!wide && omega > 0 && session.SystemZ > 0) {
      const Range practical = kind == PartKind::CableLength
                                  ? CableLengthRange(CableOf(session.Value[stage]), session.Frequency)
                                  : PracticalRange(kind, omega, session.SystemZ);
      // A practical range wholly outside what the page takes leaves the page's.
      if (practical.low < range.high && practical.high > range.low) {
        range = {std::max(range.low, practical.low), std::min(range.high, practical.high)};
      }
    }
    // Lengths within a few wavelengths are searched evenly, as a line's are.
    const bool narrowLength = kind == PartKind::CableLength && range.high < 10 * range.low;
    variables.push_back({stage, slot, range.low, range.high, kind != PartKind::LineLength && !narrowLength});
  };
  for (const int s : stages) {
    if (s < 1 || s > kLastStage) continue;
    switch (session.ElementType[s]) {
      case SeriesCapacitor: case ShuntCapacitor: add(s, 1, PartKind::Capacitor); break;
      case SeriesInductor: case ShuntInductor: add(s, 1, PartKind::Inductor); break;
      case SeriesLine: case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub: case ShuntOpenStub:
        add(s, 1, PartKind::LineLength);
        if (freeImpedances) add(s, 3, PartKind::LineImpedance);
        break;
      case ShuntSeriesLC: case SeriesParallelLC:
        add(s, 1, PartKind::Inductor);
        add(s, 3, PartKind::Capacitor);
        break;
      case SeriesResistor: case ShuntResistor: add(s, 1, PartKind::Resistor); break;
      // A feed line's length and a transformer's ratio; the cable's make and
      // the windings stay as they are.
      case CoaxialCable: add(s, 1, PartKind::CableLength); break;
      case Transformer: add(s, 1, PartKind::Ratio); break;
      default: break;
    }
  }
  return variables;
}

bool OnBound(const SearchVariable& variable, double value) {
  const double x = variable.ToSearch(value);
  const double tolerance = 1e-6 * (variable.SearchHigh() - variable.SearchLow());
  return x <= variable.SearchLow() + tolerance || x >= variable.SearchHigh() - tolerance;
}

bool NegligiblePart(const Session& session, int16_t type, int slot, double value) {
  const double omega = 2 * std::numbers::pi * session.Frequency;
  const double z0 = session.SystemZ;
  if (IsLineOrStub(type)) return slot == 1 && value < kNegligibleDegrees;
  double reactance = 0;
  switch (type) {
    case SeriesCapacitor: case ShuntCapacitor: reactance = 1 / (omega * value); break;
    case SeriesInductor: case ShuntInductor: reactance = omega * value; break;
    case SeriesResistor: case ShuntResistor: reactance = value; break;
    default: return false;  // an LC pair's reactance is that of the two together
  }
  const bool series = type == SeriesCapacitor || type == SeriesInductor || type == SeriesResistor;
  // A part left on the practical range's end counts as negligible too.
  constexpr double kRounding = 1e-9;
  return series ? reactance <= kSmallestReactance * z0 * (1 + kRounding)
                : reactance >= kLargestReactance * z0 * (1 - kRounding);
}

}  // namespace kalvex
