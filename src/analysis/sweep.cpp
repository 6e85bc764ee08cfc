#include "analysis/sweep.h"

#include <algorithm>

#include "model/calculate.h"
#include "model/reflection.h"

namespace kalvex {
namespace {

constexpr double kVSWRCap = 1'000'000;

PlottedPoint StorePoint(Session& session, int index, SweepUse use) {
  const PlottedPoint point = PlotImpedance(session.InputR, session.InputX, session.SystemZ);
  session.Rho = point.rho;
  double vswr = VSWROf(point.rho);
  if (use == SweepUse::Table) vswr = std::min(vswr, kVSWRCap);
  session.SweepFreq[index] = session.Frequency;
  session.SweepR[index] = session.InputR;
  session.SweepX[index] = session.InputX;
  session.SweepRho[index] = point.rho;
  session.SweepAngle[index] = point.angleDegrees;
  session.SweepVSWR[index] = vswr;
  return point;
}

}  // namespace

SweepIndexes RunSweepPoints(Session& session, SweepUse use, const SweepPointVisitor& visit) {
  const double savedFrequency = session.Frequency;
  const int16_t savedPoints = session.SweepPoints;
  const SweepIndexes indexes = SweepIndexesOf(session);
  if (use == SweepUse::Table) {
    session.DataIndex = session.LoadSource == 2 ? session.SweepPoints / 2 + 1 : 1;
  }

  const int count = indexes.last - indexes.first + 1;
  for (int k = indexes.first; k <= indexes.last; ++k) {
    if (session.LoadSource == 1) {
      // Multiplying before dividing puts the last point exactly on the stop.
      // With one point there is no spacing: it runs at the start frequency.
      session.Frequency =
          count > 1 ? session.SweepStart + k * (session.SweepStop - session.SweepStart) / (count - 1)
                    : session.SweepStart;
    } else {
      session.Frequency = session.LoadFreq[k];
      session.InputR = session.LoadR[k];
      session.InputX = session.LoadX[k];
      session.PointIndex = static_cast<int16_t>(k);
    }
    CalculateNetwork(session, session.PointIndex);
    const PlottedPoint point = StorePoint(session, k, use);
    if (visit) visit(k, point);
  }

  session.Frequency = savedFrequency;
  session.SweepPoints = savedPoints;
  return indexes;
}

}  // namespace kalvex
