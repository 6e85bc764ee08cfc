#pragma once

#include "model/session.h"

namespace kalvex::testing {

// Puts one point's results straight into the sweep arrays, as a sweep stores them.
inline void FillSweepPoint(Session& session, int k, double f, double r, double x, double rho,
                           double angle, double vswr) {
  session.SweepFreq[k] = f;
  session.SweepR[k] = r;
  session.SweepX[k] = x;
  session.SweepRho[k] = rho;
  session.SweepAngle[k] = angle;
  session.SweepVSWR[k] = vswr;
}

}  // namespace kalvex::testing
