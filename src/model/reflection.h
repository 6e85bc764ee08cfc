#pragma once

namespace kalvex {

// A reflection coefficient u + jv.
struct Gamma {
  double u = 0;
  double v = 0;
};

// Γ = (z − 1) / (z + 1) of the normalised impedance z = r + jx.
inline Gamma GammaOfNormalised(double r, double x) {
  const double denominator = (r + 1) * (r + 1) + x * x;
  return {(r * r + x * x - 1) / denominator, 2 * x / denominator};
}

// Where a computed input impedance lands on the chart, as the plotted and
// tabulated points take it: normalised to the system impedance, a reactance of
// exactly 0 taken as 1e-12, then its magnitude and its angle in degrees.
struct PlottedPoint {
  Gamma gamma;
  double rho = 0;
  double angleDegrees = 0;  // −180..180, positive for a positive reactance
};
PlottedPoint PlotImpedance(double inputR, double inputX, double systemZ);

// Only the reflection of PlotImpedance, for the path's thousands of points
// and the batched calculation's loops (hence inline).
inline Gamma PlottedGamma(double inputR, double inputX, double systemZ) {
  const double r = inputR / systemZ;
  const double x = inputX / systemZ;
  // A perfect match then still has an angle (+90) instead of atan2(0, 0).
  return GammaOfNormalised(r, x == 0 ? 1e-12 : x);
}

// The return loss in dB of a reflection magnitude, 20 log10(1 / rho); a rho of
// exactly 0 (which a calculated point never reaches: its reactance is at least
// 1e-12) is taken as 1e-9, 180 dB.
double ReturnLossDb(double rho);

// The standing-wave ratio of a reflection magnitude: 1,000,000 for exactly 1.
double VSWROf(double rho);

}  // namespace kalvex
