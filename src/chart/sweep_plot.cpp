#include "chart/sweep_plot.h"

#include <cmath>

#include "model/format.h"

namespace kalvex {

Point PlotSweepPoint(Canvas& canvas, const ChartView& view, Gamma gamma, Colour colour) {
  const Point at = view.GammaToPage(gamma);
  if (!std::isfinite(at.x) || !std::isfinite(at.y)) return at;
  canvas.SetLineWidth(1);
  canvas.Circle(at, 30, colour);
  return at;
}

void DrawSweepMarker(Canvas& canvas, Point at, Colour ring, const std::string& letter,
                     double frequency, int pointCount) {
  if (std::isfinite(at.x) && std::isfinite(at.y)) {
    canvas.FillEllipse(at, 90, 90, kWhite);
    canvas.Circle(at, 90, ring);
    canvas.Text({at.x - 45, at.y - 90}, letter);
  }
  const double row = letter == "S" ? 7940 : 8140;
  canvas.Text({3700, row}, "'" + letter + "'=" + FormatSI(frequency) + "Hz");
  canvas.Text({3700, 8340}, std::to_string(pointCount) + " points");
}

}  // namespace kalvex
