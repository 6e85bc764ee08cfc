#include "analysis/sweep.h"

#include <algorithm>

#include "model/calculate.h"
#include "model/reflection.h"

namespace kalvex {
namespace {

constexpr double kVSWRCap = 1'000'000;

}  // namespace

SweepIndexes RunSweepPoints(Session& session, SweepUse use, const SweepPointVisitor& visit) {
  const double savedFrequency = session.Frequency;
  const int16_t savedPoints = session.SweepPoints;
  const SweepIndexes indexes = SweepIndexesOf(session);
  if (use == SweepUse::Table) {
    session.DataIndex = session.LoadSource == 2 ? session.SweepPoints / 2 + 1 : 1;
  }

  // The calculation alone first, each point's frequency and input impedance
  // stored as it comes; then the reflection, angle and VSWR of every point in
  // one pass over those arrays, out of the calculation's way.
  const int count = indexes.last - indexes.first + 1;
  // The network's own load is the same at every point: taken once.
  const Impedance load = session.LoadSource == 1 ? NetworkLoad(session, 0) : Impedance{};
  for (int k = indexes.first; k <= indexes.last; ++k) {
    if (session.LoadSource == 1) {
      // Multiplying before dividing puts the last point exactly on the stop.
      // With one point there is no spacing: it runs at the start frequency.
      session.Frequency =
          count > 1 ? session.SweepStart + k * (session.SweepStop - session.SweepStart) / (count - 1)
                    : session.SweepStart;
      if (session.Frequency > 0) {
        const Impedance z = ThroughStages(session, load, 1, kLastStage);
        session.InputR = z.R;
        session.InputX = z.X;
      }
    } else {
      session.Frequency = session.LoadFreq[k];
      session.InputR = session.LoadR[k];
      session.InputX = session.LoadX[k];
      session.PointIndex = static_cast<int16_t>(k);
      CalculateNetwork(session, session.PointIndex);
    }
    session.SweepFreq[k] = session.Frequency;
    session.SweepR[k] = session.InputR;
    session.SweepX[k] = session.InputX;
  }
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
