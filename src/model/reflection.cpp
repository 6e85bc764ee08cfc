#include "model/reflection.h"

#include <cmath>
#include <numbers>

namespace kalvex {

Gamma GammaOfNormalised(double r, double x) {
  const double denominator = (r + 1) * (r + 1) + x * x;
  return {(r * r + x * x - 1) / denominator, 2 * x / denominator};
}

Gamma PlottedGamma(double inputR, double inputX, double systemZ) {
  const double r = inputR / systemZ;
  double x = inputX / systemZ;
  // A perfect match then still has an angle (+90) instead of atan2(0, 0).
  if (x == 0) x = 1e-12;
  return GammaOfNormalised(r, x);
}

PlottedPoint PlotImpedance(double inputR, double inputX, double systemZ) {
  PlottedPoint point;
  point.gamma = PlottedGamma(inputR, inputX, systemZ);
  point.rho = std::sqrt(point.gamma.u * point.gamma.u + point.gamma.v * point.gamma.v);
  point.angleDegrees = std::atan2(point.gamma.v, point.gamma.u) * 180 / std::numbers::pi;
  return point;
}

double VSWROf(double rho) {
  constexpr double kTotalReflection = 1'000'000;
  if (rho == 1) return kTotalReflection;
  return std::fabs((1 + rho) / (1 - rho));
}

double ReturnLossDb(double rho) { return 20 * std::log10(1 / (rho == 0 ? 1e-9 : rho)); }

}  // namespace kalvex
