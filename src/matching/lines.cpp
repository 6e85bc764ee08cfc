// Matches made of line sections and stubs of the system impedance.
#include <cmath>
#include <complex>
#include <functional>
#include <numbers>

#include "matching/synthesis.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;
constexpr double kPi = std::numbers::pi;
// A line shorter than this (in degrees) is no line: the stage is left out.
constexpr double kNegligibleDegrees = 1e-9;

// A line section of `degrees` at `frequency`, or nothing for a length of 0.
void AddLine(MatchStages& stages, int16_t type, double degrees, double frequency, double z) {
  if (degrees < kNegligibleDegrees) return;
  stages.push_back({type, {0, degrees, frequency, z}});
}

// An angle in degrees brought into [0, period).
double Wrapped(double degrees, double period) {
  const double wrapped = std::fmod(degrees, period);
  return wrapped < 0 ? wrapped + period : wrapped;
}

// Where the load turns real along a line of z0: the line's length in degrees
// and the real impedance there, at the maximum and at the minimum of the
// standing wave. A real load needs no line to its own point.
struct RealPoint {
  double degrees;
  double resistance;
};
std::vector<RealPoint> RealPoints(Impedance load, double z0) {
  const Complex zl(load.R, load.X);
  const Complex gamma = (zl - z0) / (zl + z0);
  const double rho = std::abs(gamma);
  if (rho < 1e-12) return {};
  // Towards the generator the reflection turns by −2βd: it is real at 2βd = φ and φ + π.
  const double phase = std::arg(gamma) * 180 / kPi;
  return {{Wrapped(phase / 2, 180), z0 * (1 + rho) / (1 - rho)},
          {Wrapped((phase + 180) / 2, 180), z0 * (1 - rho) / (1 + rho)}};
}

std::vector<MatchStages> SectionedMatches(Impedance load, double z0, double frequency,
                                          const std::function<std::vector<double>(double)>& sections) {
  std::vector<MatchStages> networks;
  for (const RealPoint& point : RealPoints(load, z0)) {
    MatchStages stages;
    AddLine(stages, SeriesLine, point.degrees, frequency, z0);
    const std::vector<double> impedances = sections(point.resistance);
    // The sections run from the generator's side: the load's stage comes first.
    for (auto z = impedances.rbegin(); z != impedances.rend(); ++z) {
      AddLine(stages, SeriesLine, 90, frequency, *z);
    }
    networks.push_back(stages);
  }
  return networks;
}

// The coefficients Γ0..ΓN of a symmetric multi-section transformer scaled so
// that 2 ΣΓn = ln(zl / zs); `shape` gives them up to that scale.
std::vector<double> StepsOf(double zs, double zl, std::vector<double> shape) {
  double sum = 0;
  for (const double g : shape) sum += 2 * g;
  const double scale = std::log(zl / zs) / sum;
  std::vector<double> sections;
  double lnZ = std::log(zs);
  for (std::size_t n = 0; n + 1 < shape.size(); ++n) {
    lnZ += 2 * shape[n] * scale;
    sections.push_back(std::exp(lnZ));
  }
  return sections;
}

}  // namespace

std::vector<MatchStages> StubMatches(Impedance load, double z0, double frequency) {
  const double r = load.R;
  const double x = load.X;
  // tan βd for the two points where the admittance is 1/z0 + jB (a classic closed form).
  std::vector<double> tangents;
  if (std::fabs(r - z0) < 1e-12 * z0) {
    tangents = {-x / (2 * z0)};
  } else {
    const double root = std::sqrt(r * ((z0 - r) * (z0 - r) + x * x) / z0);
    tangents = {(x + root) / (r - z0), (x - root) / (r - z0)};
  }
  std::vector<MatchStages> networks;
  for (const double t : tangents) {
    const double lineDegrees = Wrapped(std::atan(t) * 180 / kPi, 180);
    const double b = (r * r * t - (z0 - x * t) * (x + z0 * t)) /
                     (z0 * (r * r + (x + z0 * t) * (x + z0 * t)));
    // The stub cancels B: an open stub of jY0 tan βl, a shorted one of −jY0 cot βl.
    const double open = Wrapped(std::atan(-b * z0) * 180 / kPi, 180);
    const double shorted = Wrapped(std::atan(1 / (b * z0)) * 180 / kPi, 180);
    for (const auto& [type, degrees] : {std::pair{ShuntOpenStub, open}, std::pair{ShuntShortedStub, shorted}}) {
      MatchStages stages;
      AddLine(stages, SeriesLine, lineDegrees, frequency, z0);
      if (std::fabs(b) * z0 >= 1e-12) AddLine(stages, type, degrees, frequency, z0);
      networks.push_back(stages);
    }
  }
  return networks;
}

std::vector<MatchStages> QuarterWaveMatches(Impedance load, double z0, double frequency) {
  return SectionedMatches(load, z0, frequency,
                          [z0](double r) { return std::vector<double>{std::sqrt(r * z0)}; });
}

std::vector<double> BinomialSections(double zs, double zl, int sections) {
  std::vector<double> shape;
  double c = 1;  // C(N, n)
  for (int n = 0; n <= sections; ++n) {
    shape.push_back(c);
    c = c * (sections - n) / (n + 1);
  }
  return StepsOf(zs, zl, shape);
}

std::vector<double> ChebyshevSections(double zs, double zl, int sections, double rippleDb) {
  // The passband's largest reflection from the ripple of the insertion loss.
  const double gammaMax = std::sqrt(1 - std::pow(10.0, -rippleDb / 10));
  const double ratio = std::fabs(std::log(zl / zs)) / (2 * gammaMax);
  const double s = std::cosh(std::acosh(std::max(1.0, ratio)) / sections);  // sec θm
  // Four sections step down in the middle for sec² θm below 4/3: kept at least there.
  const double s2 = sections == 4 ? std::max(s * s, 4.0 / 3) : s * s;
  // T_N(s cos θ) written as cosines of Nθ, (N−2)θ, ...: 2 Σ Γn cos((N−2n)θ).
  // An even N has a ripple's peak at the centre, T_N(0) = ±1: it is taken
  // off the constant term, so the working frequency is matched exactly and
  // the passband ripples between 0 and twice the design's peak.
  switch (sections) {
    case 2: return StepsOf(zs, zl, {s2 / 2, s2, s2 / 2});
    case 3: {
      const double g0 = s2 * s / 2;
      const double g1 = 3 * (s2 * s - s) / 2;
      return StepsOf(zs, zl, {g0, g1, g1, g0});
    }
    default: {
      const double g0 = s2 * s2 / 2;
      const double g1 = 2 * (s2 * s2 - s2);
      return StepsOf(zs, zl, {g0, g1, 3 * s2 * s2 - 4 * s2, g1, g0});
    }
  }
}

std::vector<MatchStages> BinomialMatches(Impedance load, double z0, double frequency, int sections) {
  return SectionedMatches(load, z0, frequency,
                          [z0, sections](double r) { return BinomialSections(z0, r, sections); });
}

std::vector<MatchStages> ChebyshevMatches(Impedance load, double z0, double frequency, int sections,
                                          double rippleDb) {
  return SectionedMatches(load, z0, frequency, [z0, sections, rippleDb](double r) {
    return ChebyshevSections(z0, r, sections, rippleDb);
  });
}

}  // namespace kalvex
