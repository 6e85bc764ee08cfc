#include "analysis/band_plot.h"

#include <algorithm>
#include <cmath>

#include "model/format.h"
#include "model/number_text.h"
#include "model/reflection.h"
#include "model/trim.h"

namespace kalvex {
namespace {

constexpr double kLeft = 1500;
constexpr double kRight = 11400;
constexpr double kTop = 1000;
constexpr double kBottom = 7600;
constexpr Colour kBlack = 0;
constexpr Colour kAxisGrey = RGB(190, 190, 190);
constexpr Colour kCurveBlue = RGB(17, 17, 255);
constexpr Colour kThresholdOrange = RGB(238, 153, 17);
constexpr Colour kEdgeRed = RGB(255, 17, 17);
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

// A step of 1, 2 or 5 times a power of ten that cuts `span` into about five parts.
double NiceStep(double span) {
  const double raw = span / 5;
  const double power = std::pow(10.0, std::floor(std::log10(raw)));
  for (const double m : {1.0, 2.0, 5.0}) {
    if (m * power >= raw) return m * power;
  }
  return 10 * power;
}

std::string Hertz(double f) { return std::string(Trim(FormatSI(f), " ")) + "Hz"; }

class Plot {
 public:
  Plot(double f1, double f2, double y1, double y2) : f1_(f1), f2_(f2), y1_(y1), y2_(y2) {}
  double X(double f) const { return kLeft + (f - f1_) / (f2_ - f1_) * (kRight - kLeft); }
  double Y(double v) const {
    return kBottom - (std::clamp(v, y1_, y2_) - y1_) / (y2_ - y1_) * (kBottom - kTop);
  }
  double Low() const { return y1_; }
  double High() const { return y2_; }

 private:
  double f1_, f2_, y1_, y2_;
};

void DashedLine(Canvas& canvas, Point from, Point to, Colour colour) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  for (double s = 0; s < length; s += 250) {
    const double e = std::min(s + 150, length);
    canvas.Line({from.x + (to.x - from.x) * s / length, from.y + (to.y - from.y) * s / length},
                {from.x + (to.x - from.x) * e / length, from.y + (to.y - from.y) * e / length}, colour);
  }
}

void DrawAxes(Canvas& canvas, const Plot& plot, const BandFigures& figures) {
  canvas.SetLineWidth(1);
  canvas.SetTextColour(kBlack);
  const double fStep = NiceStep(figures.high - figures.low);
  for (double f = std::ceil(figures.low / fStep) * fStep; f <= figures.high * (1 + 1e-12); f += fStep) {
    canvas.Line({plot.X(f), kTop}, {plot.X(f), kBottom}, kAxisGrey);
    canvas.Text({plot.X(f) - 300, kBottom + 80}, std::string(Trim(FormatSI(f), " ")));
  }
  const double yStep = NiceStep(plot.High() - plot.Low());
  for (double v = std::ceil(plot.Low() / yStep) * yStep; v <= plot.High() * (1 + 1e-12); v += yStep) {
    canvas.Line({kLeft, plot.Y(v)}, {kRight, plot.Y(v)}, kAxisGrey);
    canvas.Text({kLeft - 700, plot.Y(v) - 100}, FormattedNumber("%.4g", v));
  }
  canvas.OutlineRect({kLeft, kTop}, {kRight, kBottom}, kBlack);
  canvas.Text({(kLeft + kRight) / 2 - 600, kBottom + 400}, "Frequency (Hz)");
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
                                Hertz(figures.low) + " to " + Hertz(figures.high) + ", load " +
                                LoadModelName(figures.loadModel));
  canvas.SetFont(9, false);
  if (figures.points.empty() || !(figures.high > figures.low)) {
    canvas.Text({kLeft, 2000}, "No sweep: set a sweep or read load data to see the band.");
    return;
  }
  // The vertical range: VSWR from 1 to past the largest threshold (at most
  // 10), return loss from 0 to past the best point, |Gamma| from 0 to 1.
  double top = 1;
  const double largest = figures.edges.empty() ? 3 : std::max_element(
      figures.edges.begin(), figures.edges.end(),
      [](const BandEdges& a, const BandEdges& b) { return a.vswr < b.vswr; })->vswr;
  switch (quantity) {
    case BandQuantity::VSWR: top = std::clamp(std::max(figures.worst.vswr, largest) * 1.1, 2.0, 10.0); break;
    case BandQuantity::ReturnLoss: top = std::clamp(figures.best.returnLoss * 1.1, 20.0, 60.0); break;
    case BandQuantity::Gamma: top = 1; break;
  }
  const Plot plot(figures.low, figures.high, quantity == BandQuantity::VSWR ? 1 : 0, top);
  DrawAxes(canvas, plot, figures);

  // The curve, in frequency order.
  std::vector<BandPoint> ordered = figures.points;
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const BandPoint& a, const BandPoint& b) { return a.frequency < b.frequency; });
  canvas.SetLineWidth(2);
  canvas.MoveTo({plot.X(ordered.front().frequency), plot.Y(Value(quantity, ordered.front().vswr))});
  for (const BandPoint& p : ordered) canvas.LineTo({plot.X(p.frequency), plot.Y(Value(quantity, p.vswr))}, kCurveBlue);
  canvas.SetLineWidth(1);

  // Thresholds and their edges.
  for (const BandEdges& e : figures.edges) {
    const double y = plot.Y(Value(quantity, e.vswr));
    canvas.Line({kLeft, y}, {kRight, y}, kThresholdOrange);
    canvas.SetTextColour(kThresholdOrange);
    canvas.Text({kRight + 80, y - 100}, "VSWR " + FormattedNumber("%.4g", e.vswr));
    canvas.SetTextColour(kEdgeRed);
    for (const auto& edge : {e.low, e.high}) {
      if (!edge) continue;
      canvas.Circle({plot.X(*edge), y}, 60, kEdgeRed);
      canvas.Text({plot.X(*edge) - 300, y + 80}, std::string(Trim(FormatSI(*edge), " ")));
    }
  }

  // The working frequency, the worst point and the bound.
  if (figures.workingFrequency >= figures.low && figures.workingFrequency <= figures.high) {
    DashedLine(canvas, {plot.X(figures.workingFrequency), kTop}, {plot.X(figures.workingFrequency), kBottom},
               kWorkingGreen);
    canvas.SetTextColour(kWorkingGreen);
    canvas.Text({plot.X(figures.workingFrequency) + 60, kTop + 60}, "f0 " + Hertz(figures.workingFrequency));
  }
  const Point worst{plot.X(figures.worst.frequency), plot.Y(Value(quantity, figures.worst.vswr))};
  canvas.FillEllipse(worst, 70, 70, kEdgeRed);
  canvas.SetTextColour(kEdgeRed);
  canvas.Text({std::min(worst.x + 100, kRight - 1500), worst.y + 100}, "worst VSWR " + FormattedNumber("%.4g", figures.worst.vswr));
  const double bound = std::max(figures.series.gamma, figures.parallel.gamma);
  if (bound > 0) {
    const double y = plot.Y(Value(quantity, VSWROf(bound)));
    DashedLine(canvas, {kLeft, y}, {kRight, y}, kBoundPurple);
    canvas.SetTextColour(kBoundPurple);
    canvas.Text({kLeft + 100, y - 250}, "Bode-Fano bound, VSWR " + FormattedNumber("%.4g", VSWROf(bound)));
  }
  canvas.SetTextColour(kBlack);
}

}  // namespace kalvex
