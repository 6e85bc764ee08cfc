#include "analysis/band_plot.h"

#include <algorithm>
#include <cmath>

#include "analysis/band_text.h"
#include "analysis/frequency_plot.h"
#include "model/format.h"
#include "model/number_text.h"
#include "model/reflection.h"
#include "model/trim.h"

namespace kalvex {
namespace {

using namespace frequency_plot;

constexpr Colour kWorkingGreen = RGB(17, 136, 17);
constexpr Colour kBoundPurple = RGB(153, 51, 204);

double Value(BandQuantity quantity, double vswr) {
  const double gamma = (vswr - 1) / (vswr + 1);
  switch (quantity) {
    case BandQuantity::VSWR: return vswr;
    case BandQuantity::ReturnLoss: return ReturnLossDb(gamma);
    case BandQuantity::Gamma: return gamma;
  }
  return vswr;
}

// The vertical range: VSWR from 1 to past the worst point and the largest
// threshold, return loss from 0 to past the best point, |Gamma| from 0 to 1.
Plot PlotOf(const BandFigures& figures, BandQuantity quantity) {
  double largest = 3;
  for (const BandEdges& e : figures.edges) largest = std::max(largest, e.vswr);
  switch (quantity) {
    case BandQuantity::VSWR:
      return {figures.low, figures.high, 1, std::min(std::max(figures.worst.vswr, largest) * 1.25, 2e6), true};
    case BandQuantity::ReturnLoss:
      return {figures.low, figures.high, 0, std::clamp(figures.best.returnLoss * 1.1, 20.0, 130.0), false};
    case BandQuantity::Gamma: break;
  }
  return {figures.low, figures.high, 0, 1, false};
}

void DrawMarks(Canvas& canvas, Labels& labels, const Plot& plot, const BandFigures& figures, BandQuantity quantity) {
  const double h = Labels::Height();
  // Thresholds and their edges.
  for (const BandEdges& e : figures.edges) {
    const double y = plot.Y(Value(quantity, e.vswr));
    canvas.Line({kLeft, y}, {kRight, y}, kThresholdOrange);
    canvas.SetTextColour(kThresholdOrange);
    const std::string name = "VSWR " + FormattedNumber("%.4g", e.vswr);
    const double w = Labels::Width(name);
    labels.Place(name, {{kRight - w - 80, y - h - 20}, {kRight - w - 80, y + 20}, {kLeft + 80, y - h - 20},
                        {kLeft + 80, y + 20}}, kInside);
    canvas.SetTextColour(kEdgeRed);
    for (const auto& edge : {e.low, e.high}) {
      if (!edge) continue;
      const double x = plot.X(*edge);
      canvas.Circle({x, y}, 60, kEdgeRed);
      const std::string text(Trim(FormatSI(*edge), " "));
      const double tw = Labels::Width(text);
      labels.Place(text, {{x - tw / 2, y + 80}, {x - tw / 2, y - h - 80}, {x + 100, y + 20}, {x - tw - 100, y + 20},
                          {x + 100, y - h - 20}, {x - tw - 100, y - h - 20}}, kInside);
    }
  }

  // The working frequency, the worst point and the bound.
  if (figures.workingFrequency >= figures.low && figures.workingFrequency <= figures.high) {
    const double x = plot.X(figures.workingFrequency);
    for (double y = kTop; y < kBottom; y += 250) canvas.Line({x, y}, {x, std::min(y + 150, kBottom)}, kWorkingGreen);
    canvas.SetTextColour(kWorkingGreen);
    const std::string text = "f0 " + Hertz(figures.workingFrequency);
    const double w = Labels::Width(text);
    labels.Place(text, {{x + 60, kTop + 60}, {x - w - 60, kTop + 60}, {x + 60, kTop + 100 + 1.5 * h},
                        {x - w - 60, kTop + 100 + 1.5 * h}, {x + 60, kBottom - h - 60}, {x - w - 60, kBottom - h - 60}},
                 kInside);
  }
  const Point worst{plot.X(figures.worst.frequency), plot.Y(Value(quantity, figures.worst.vswr))};
  canvas.FillEllipse(worst, 70, 70, kEdgeRed);
  canvas.SetTextColour(kEdgeRed);
  const std::string worstText = "worst VSWR " + FormattedNumber("%.4g", figures.worst.vswr);
  const double ww = Labels::Width(worstText);
  labels.Place(worstText, {{worst.x + 100, worst.y + 100}, {worst.x + 100, worst.y - h - 100},
                           {worst.x - ww - 100, worst.y + 100}, {worst.x - ww - 100, worst.y - h - 100},
                           {worst.x - ww / 2, worst.y + 2 * h}, {worst.x - ww / 2, worst.y - 3 * h}}, kInside);
  // The bound, where it lies within the axis (the figures give it always).
  const double bound = std::max(figures.series.gamma, figures.parallel.gamma);
  const double boundValue = Value(quantity, VSWROf(bound));
  if (bound > 0 && boundValue >= plot.Low() && boundValue <= plot.High()) {
    const double y = plot.Y(Value(quantity, VSWROf(bound)));
    for (double x = kLeft; x < kRight; x += 250) canvas.Line({x, y}, {std::min(x + 150, kRight), y}, kBoundPurple);
    canvas.SetTextColour(kBoundPurple);
    const std::string text = "Bode-Fano bound, VSWR " + FormattedNumber("%.4g", VSWROf(bound));
    const double w = Labels::Width(text);
    labels.Place(text, {{kLeft + 100, y - h - 40}, {kLeft + 100, y + 40}, {kRight - w - 100, y - h - 40},
                        {kRight - w - 100, y + 40}, {(kLeft + kRight - w) / 2, y - h - 40}, {(kLeft + kRight - w) / 2, y + 40}},
                 kInside);
  }
}

}  // namespace

const char* BandQuantityName(BandQuantity quantity) {
  switch (quantity) {
    case BandQuantity::VSWR: return "VSWR";
    case BandQuantity::ReturnLoss: return "Return loss (dB)";
    case BandQuantity::Gamma: return "|Gamma|";
  }
  return "";
}

void DrawBandPlot(const BandFigures& figures, BandQuantity quantity, Canvas& canvas) {
  canvas.Clear(kWhite);
  canvas.SetFont(12, true);
  canvas.SetTextColour(kBlack);
  canvas.Text({kLeft, 300}, std::string(BandQuantityName(quantity)) + " against frequency, " +
                                Hertz(figures.low) + " to " + Hertz(figures.high));
  canvas.SetFont(kLabelPoints, false);
  if (figures.points.empty() || !(figures.high > figures.low)) {
    canvas.Text({kLeft, 2000}, "No sweep: set a sweep or read load data to see the band.");
    return;
  }
  const Plot plot = PlotOf(figures, quantity);
  Labels labels(canvas);
  DrawAxes(canvas, labels, plot);

  // The curve, in frequency order.
  std::vector<BandPoint> ordered = figures.points;
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const BandPoint& a, const BandPoint& b) { return a.frequency < b.frequency; });
  canvas.SetLineWidth(2);
  canvas.MoveTo({plot.X(ordered.front().frequency), plot.Y(Value(quantity, ordered.front().vswr))});
  for (const BandPoint& p : ordered) canvas.LineTo({plot.X(p.frequency), plot.Y(Value(quantity, p.vswr))}, kCurveBlue);
  canvas.SetLineWidth(1);

  DrawMarks(canvas, labels, plot, figures, quantity);
  DrawFigures(canvas, BandReport(figures));
  canvas.SetTextColour(kBlack);
}

}  // namespace kalvex
