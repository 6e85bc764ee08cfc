#include "model/reflection.h"

#include <cmath>
#include <numbers>

namespace kalvex {

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
