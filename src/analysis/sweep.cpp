#include "analysis/sweep.h"

#include <algorithm>
#include <span>

#include "model/batch_calculate.h"
#include "model/calculate.h"
#include "model/reflection.h"

namespace kalvex {
namespace {

constexpr double kVSWRCap = 1'000'000;

// Frequency and input impedance of points first..first+count-1, as a loop of
// CalculateNetwork leaves them: with the network's own load (taken at each
// point as the session's load model says), a point without
// a frequency above 0 keeps what the point before it left; with load data,
// its load. The session's input impedance ends as the last point's.
void CalculateSweepPoints(Session& session, int first, int count) {
  const std::span<double> f(&session.SweepFreq[first], count);
  const std::span<double> r(&session.SweepR[first], count);
  const std::span<double> x(&session.SweepX[first], count);
  const bool ownLoad = session.LoadSource == 1;
  const Impedance load = ownLoad ? NetworkLoad(session, 0) : Impedance{};
  for (int j = 0; j < count; ++j) {
    const int k = first + j;
    if (ownLoad) {
      // Multiplying before dividing puts the last point exactly on the stop.
      // With one point there is no spacing: it runs at the start frequency.
      f[j] = count > 1 ? session.SweepStart + k * (session.SweepStop - session.SweepStart) / (count - 1)
                       : session.SweepStart;
      const Impedance at = LoadAtFrequency(load, session.Frequency, f[j], session.SweepLoadModel);
      r[j] = at.R;
      x[j] = at.X;
    } else {
      f[j] = session.LoadFreq[k];
      r[j] = session.LoadR[k];
      x[j] = session.LoadX[k];
    }
  }
  const NetworkBatch network(session);
  network.Calculate(f, r, x);
  bool calculated = false;
  for (int j = 0; j < count; ++j) {
    calculated |= f[j] > 0;
    if (ownLoad && !(f[j] > 0)) {
      r[j] = j > 0 ? r[j - 1] : session.InputR;
      x[j] = j > 0 ? x[j - 1] : session.InputX;
    }
  }
  if (calculated && network.HasLines()) session.VelocityFactor = 1.0;
  if (!ownLoad) session.PointIndex = static_cast<int16_t>(first + count - 1);
  session.InputR = r[count - 1];
  session.InputX = x[count - 1];
}

}  // namespace

SweepIndexes RunSweepPoints(Session& session, SweepUse use, const SweepPointVisitor& visit) {
  const double savedFrequency = session.Frequency;
  const int16_t savedPoints = session.SweepPoints;
  const SweepIndexes indexes = SweepIndexesOf(session);
  if (use == SweepUse::Table) {
    session.DataIndex = session.LoadSource == 2 ? session.SweepPoints / 2 + 1 : 1;
  }

  // The calculation alone first, all points in one batch into the sweep
  // arrays; then the reflection, angle and VSWR of every point in one pass
  // over those arrays.
  const int count = indexes.last - indexes.first + 1;
  if (count > 0) CalculateSweepPoints(session, indexes.first, count);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    const PlottedPoint point = PlotImpedance(session.SweepR[k], session.SweepX[k], session.SystemZ);
    session.SweepRho[k] = point.rho;
    session.SweepAngle[k] = point.angleDegrees;
    const double vswr = VSWROf(point.rho);
    session.SweepVSWR[k] = use == SweepUse::Table ? std::min(vswr, kVSWRCap) : vswr;
    if (visit) {
      session.Frequency = session.SweepFreq[k];
      visit(k, point);
    }
  }
  if (count > 0) session.Rho = session.SweepRho[indexes.last];

  session.Frequency = savedFrequency;
  session.SweepPoints = savedPoints;
  return indexes;
}

}  // namespace kalvex
