#include "analysis/sweep_on_chart.h"

#include "analysis/sweep.h"
#include "chart/sweep_plot.h"

namespace kalvex {

void RunSweep(Session& session, Canvas& canvas) {
  if (session.SweepShown == 0) return;
  const ChartView view = ChartView::Of(session);
  const SweepIndexes indexes = SweepIndexesOf(session);
  const int count = indexes.last - indexes.first + 1;
  RunSweepPoints(session, SweepUse::Chart, [&](int index, const PlottedPoint& point) {
    const Point at = PlotSweepPoint(canvas, view, point.gamma, kSweepPointColour);
    if (index == indexes.first) {
      DrawSweepMarker(canvas, at, session.ArcColour, "S", session.Frequency, count);
    }
    if (index == indexes.last) {
      DrawSweepMarker(canvas, at, session.ArcColour, "F", session.Frequency, count);
    }
  });
}

}  // namespace kalvex
