#include "chart/readout.h"

#include <cmath>

#include "model/format.h"
#include "model/trim.h"

namespace kalvex {
Readout ReadoutAt(const Session& session, double x, double y) {
  const double pi = session.Pi;
  const double dy = y - session.ChartCentreY;
  double dx = (x - session.ChartCentreX) / session.ChartAspect;
  if (dx == 0) dx = 1e-6;
  double a = -std::atan(dy / dx) * 180 / pi;
  if (dx < 0) a = dy >= 0 ? a + 180 : a - 180;
  if (a > 180) a -= 360;
  if (a < -180) a += 360;
  double rho = std::sqrt(dx * dx + dy * dy) / session.ChartRadius;

  Readout readout;
  readout.inside = rho <= 1;
  if (rho == 1) rho = 0.999999999999;
  const double vswr = -(rho + 1) / (rho - 1);
  const double returnLoss = 20 * std::log(1 / rho) / std::log(10.0);
  const double theta = pi * a / 180;
  const double u = rho * std::cos(theta);
  const double v = rho * std::sin(theta);
  const double z0 = session.SystemZ;
  const double d = (1 - u) * (1 - u) + v * v;
  const double rz = ((1 + u) * z0 * (1 - u) - v * z0 * v) / d;
  const double xz = z0 * 2 * v / d;
  const double g = rz / (rz * rz + xz * xz);
  const double b = -xz / (rz * rz + xz * xz);

  readout.rho = " " + Trimmed(FormatGeneral(rho)) + " @ " + FormatGeneral(a) + "\u00b0";
  readout.vswr = vswr >= 1000 ? " >1000:1   " : " " + Trimmed(FormatGeneral(vswr)) + ":1   ";
  readout.returnLoss =
      (returnLoss > 120 ? ">120" : " " + Trimmed(FormatGeneral(returnLoss))) + "dB";
  readout.resistance = " " + FormatGeneral(rz);
  readout.reactance = " " + FormatGeneral(xz);
  readout.conductance = " " + FormatGeneral(g);
  readout.susceptance = " " + FormatGeneral(b);
  return readout;
}

}  // namespace kalvex
