// Matches made of line sections and stubs of the system impedance.
#include <cmath>
#include <complex>
#include <functional>
#include <limits>
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
    if (impedances.empty()) continue;
    // The sections run from the generator's side: the load's stage comes first.
    for (auto z = impedances.rbegin(); z != impedances.rend(); ++z) {
      AddLine(stages, SeriesLine, 90, frequency, *z);
    }
    networks.push_back(stages);
  }
  return networks;
}

// The reflection of a symmetric transformer of N sections is
// e^{-jNθ} A P(s cos θ), with θ the sections' electrical length, for a
// polynomial P of degree N: x^N for the binomial one, the Chebyshev T_N for
// the equal-ripple one. Γn, the step between sections n and n+1, is A times
// the coefficient of e^{j(N-2n)θ} once cos θ is written (e^{jθ} + e^{-jθ}) / 2.
std::vector<double> StepShape(const std::vector<double>& polynomial, double s) {
  const int sections = static_cast<int>(polynomial.size()) - 1;
  std::vector<double> shape(polynomial.size(), 0.0);
  for (int k = 0; k <= sections; ++k) {
    if (polynomial[k] == 0) continue;
    const double weight = polynomial[k] * std::pow(s / 2, k);
    for (int n = 0; n <= sections; ++n) {
      const int twiceJ = k - sections + 2 * n;  // the power of e^{-jθ} taken j times
      if (twiceJ < 0 || twiceJ % 2 != 0 || twiceJ / 2 > k) continue;
      shape[n] += weight * std::tgamma(k + 1.0) / (std::tgamma(twiceJ / 2 + 1.0) * std::tgamma(k - twiceJ / 2 + 1.0));
    }
  }
  return shape;
}

// The impedances after each step, generator side first, with A chosen so that
// the steps (ln Z[n+1] / Z[n] = 2 Γn) add up to ln(zl / zs).
std::vector<double> SectionsOfShape(double zs, double zl, const std::vector<double>& shape) {
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

// T_N(x) as its coefficients of x^0..x^N.
std::vector<double> ChebyshevPolynomial(int n) {
  std::vector<double> previous = {1};
  std::vector<double> current = {0, 1};
  if (n == 0) return previous;
  for (int k = 1; k < n; ++k) {
    std::vector<double> next(current.size() + 1, 0.0);
    for (std::size_t j = 0; j < current.size(); ++j) next[j + 1] += 2 * current[j];
    for (std::size_t j = 0; j < previous.size(); ++j) next[j] -= previous[j];
    previous = std::move(current);
    current = std::move(next);
  }
  return current;
}

}  // namespace

std::vector<MatchStages> StubMatches(Impedance load, double z0, double frequency) {
  const double r = load.R;
  const double x = load.X;
  // tan βd for the two points where the admittance is 1/z0 + jB (a classic closed form).
  // A load of R = z0 has its second point a quarter wave on (tan βd infinite):
  // there the admittance is the load's impedance over z0², 1/z0 + jX/z0².
  std::vector<double> tangents;
  if (std::fabs(r - z0) < 1e-12 * z0) {
    tangents = {-x / (2 * z0), std::numeric_limits<double>::infinity()};
  } else {
    const double root = std::sqrt(r * ((z0 - r) * (z0 - r) + x * x) / z0);
    tangents = {(x + root) / (r - z0), (x - root) / (r - z0)};
  }
  std::vector<MatchStages> networks;
  for (const double t : tangents) {
    const double lineDegrees = std::isinf(t) ? 90 : Wrapped(std::atan(t) * 180 / kPi, 180);
    const double b = std::isinf(t) ? x / (z0 * z0)
                                   : (r * r * t - (z0 - x * t) * (x + z0 * t)) /
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
  std::vector<double> power(static_cast<std::size_t>(sections) + 1, 0.0);
  power.back() = 1;
  return SectionsOfShape(zs, zl, StepShape(power, 1));
}

std::vector<double> ChebyshevSections(double zs, double zl, int sections, double gammaMax) {
  // At the centre (θ = 0) the reflection is A T_N(sec θm) = ln(zl / zs) / 2 and
  // in the passband it ripples between 0 and |A| = gammaMax.
  const double ratio = std::fabs(std::log(zl / zs)) / (2 * gammaMax);
  if (!(ratio > 1)) return {};
  const double secThetaM = std::cosh(std::acosh(ratio) / sections);
  return SectionsOfShape(zs, zl, StepShape(ChebyshevPolynomial(sections), secThetaM));
}

std::vector<MatchStages> BinomialMatches(Impedance load, double z0, double frequency, int sections) {
  return SectionedMatches(load, z0, frequency,
                          [z0, sections](double r) { return BinomialSections(z0, r, sections); });
}

std::vector<MatchStages> ChebyshevMatches(Impedance load, double z0, double frequency, int sections,
                                          double gammaMax) {
  return SectionedMatches(load, z0, frequency, [z0, sections, gammaMax](double r) {
    return ChebyshevSections(z0, r, sections, gammaMax);
  });
}

}  // namespace kalvex
