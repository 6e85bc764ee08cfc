#include "matching/yield_plot.h"

#include <algorithm>
#include <cmath>

#include "analysis/frequency_plot.h"
#include "model/number_text.h"

namespace kalvex {
namespace {

using namespace frequency_plot;

constexpr Colour kEnvelopeBlue = RGB(190, 205, 255);
// The envelope is filled in strips this far apart, narrower than a pixel of
// a full-screen window; each reaches over the next so that no seam shows.
constexpr double kStrip = 10;

// Ranked parts' columns: stage, part, tolerance, the worst VSWR at each end.
constexpr double kColumns[] = {kFiguresLeft, kFiguresLeft + 650, kFiguresLeft + 1250, kFiguresLeft + 1950,
                               kFiguresLeft + 2850};

std::string Number(double value) { return FormattedNumber("%.4g", value); }

// VSWR from 1 to past the envelope, the nominal curve and the goal; the
// worst case too where it is not far above them (it is drawn to the top
// where it is).
Plot PlotOf(const std::vector<YieldEnvelopePoint>& points, double goal) {
  double top = goal;
  double worst = 1;
  for (const YieldEnvelopePoint& p : points) {
    top = std::max({top, p.high, p.nominal});
    worst = std::max(worst, p.worst);
  }
  top *= 1.25;
  if (worst < 2 * top) top = std::max(top, worst * 1.1);
  return {points.front().frequency, points.back().frequency, 1, std::min(top, 2e6), true};
}

// A value at `f` on the straight line between the points around it.
double Between(const std::vector<YieldEnvelopePoint>& points, double f, double YieldEnvelopePoint::*value) {
  const auto after = std::lower_bound(points.begin(), points.end(), f,
                                      [](const YieldEnvelopePoint& p, double at) { return p.frequency < at; });
  if (after == points.begin()) return points.front().*value;
  if (after == points.end()) return points.back().*value;
  const YieldEnvelopePoint& a = *(after - 1);
  const YieldEnvelopePoint& b = *after;
  const double share = (f - a.frequency) / (b.frequency - a.frequency);
  return a.*value + share * (b.*value - a.*value);
}

void DrawEnvelope(Canvas& canvas, const Plot& plot, const std::vector<YieldEnvelopePoint>& points) {
  const double span = plot.HighFrequency() - plot.LowFrequency();
  for (double x = kLeft; x < kRight; x += kStrip) {
    const double f = plot.LowFrequency() + (x + kStrip / 2 - kLeft) / (kRight - kLeft) * span;
    canvas.FillRect({x, plot.Y(Between(points, f, &YieldEnvelopePoint::high))},
                    {std::min(x + 2 * kStrip, kRight), plot.Y(Between(points, f, &YieldEnvelopePoint::low))},
                    kEnvelopeBlue);
  }
}

void DrawCurve(Canvas& canvas, const Plot& plot, const std::vector<YieldEnvelopePoint>& points,
               double YieldEnvelopePoint::*value, Colour colour) {
  canvas.MoveTo({plot.X(points.front().frequency), plot.Y(points.front().*value)});
  for (const YieldEnvelopePoint& p : points) canvas.LineTo({plot.X(p.frequency), plot.Y(p.*value)}, colour);
}

void DrawGoal(Canvas& canvas, Labels& labels, const Plot& plot, double goal) {
  const double y = plot.Y(goal);
  canvas.Line({kLeft, y}, {kRight, y}, kThresholdOrange);
  canvas.SetTextColour(kThresholdOrange);
  const std::string name = "goal VSWR " + Number(goal);
  const double w = Labels::Width(name);
  const double h = Labels::Height();
  labels.Place(name, {{kRight - w - 80, y - h - 20}, {kRight - w - 80, y + 20}, {kLeft + 80, y - h - 20},
                      {kLeft + 80, y + 20}}, kInside);
}

std::string Summary(const YieldResult& result, const YieldRequest& request) {
  return "Yield " + FormattedNumber("%.1f", 100 * result.yield) + " % at VSWR " + Number(request.goal) +
         " or better\n" + std::to_string(result.samples) + " networks, seed " + std::to_string(request.seed) +
         "\nSpread " +
         (request.spread == Spread::Uniform ? "uniform" : "normal, tolerance = 3 sigma") +
         "\nNominal worst VSWR " + Number(result.nominalWorst) +
         "\nCorners worst VSWR " + Number(result.cornersWorst) + "\n";
}

// What each mark is, in its colour.
double DrawLegend(Canvas& canvas, double top) {
  const double step = TextBox({}, "0", kFiguresPoints).bottom;
  const struct {
    Colour colour;
    const char* text;
  } entries[] = {{kCurveBlue, "nominal network"},
                 {kEnvelopeBlue, "5 to 95 % of the networks"},
                 {kEdgeRed, "worst corner at each frequency"},
                 {kThresholdOrange, "goal"}};
  for (const auto& entry : entries) {
    canvas.FillRect({kFiguresLeft, top + step * 0.3}, {kFiguresLeft + 300, top + step * 0.7}, entry.colour);
    canvas.SetTextColour(kBlack);
    canvas.Text({kFiguresLeft + 400, top}, entry.text);
    top += step;
  }
  return top + step / 3;
}

void DrawRanking(Canvas& canvas, const YieldResult& result, double top) {
  top = DrawFigures(canvas, "Parts by their share of the spread: worst VSWR with one part at each end", top);
  const double step = TextBox({}, "0", kFiguresPoints).bottom;
  const auto row = [&](const std::vector<std::string>& cells) {
    for (std::size_t c = 0; c < cells.size(); ++c) canvas.Text({kColumns[c], top}, cells[c]);
    top += step;
  };
  if (result.parts.empty()) {
    DrawFigures(canvas, "No part has a tolerance: every network is the nominal one.", top);
    return;
  }
  row({"Stage", "Part", "+/- %", "low end", "high end"});
  for (const PartSpread& p : result.parts) {
    row({std::to_string(p.part.stage), PartLetter(p.part.kind), Number(p.tolerance), Number(p.lowVSWR),
         Number(p.highVSWR)});
  }
}

}  // namespace

void DrawYieldPlot(const YieldResult& result, const YieldRequest& request, const std::string& note, Canvas& canvas) {
  canvas.Clear(kWhite);
  std::vector<YieldEnvelopePoint> points = result.envelope;
  std::stable_sort(points.begin(), points.end(),
                   [](const YieldEnvelopePoint& a, const YieldEnvelopePoint& b) { return a.frequency < b.frequency; });
  canvas.SetFont(12, true);
  canvas.SetTextColour(kBlack);
  std::string title = "Yield: VSWR against frequency";
  if (!points.empty()) title += ", " + Hertz(points.front().frequency) + " to " + Hertz(points.back().frequency);
  if (!note.empty()) title += " (" + note + ")";
  canvas.Text({kLeft, 300}, title);
  canvas.SetFont(kLabelPoints, false);
  if (points.empty()) {
    canvas.Text({kLeft, 2000}, "Computing the yield of " + std::to_string(request.samples) + " networks...");
    return;
  }
  if (points.back().frequency > points.front().frequency) {
    const Plot plot = PlotOf(points, request.goal);
    Labels labels(canvas);
    DrawAxes(canvas, labels, plot);
    DrawEnvelope(canvas, plot, points);
    canvas.OutlineRect({kLeft, kTop}, {kRight, kBottom}, kBlack);
    canvas.SetLineWidth(1);
    DrawCurve(canvas, plot, points, &YieldEnvelopePoint::worst, kEdgeRed);
    canvas.SetLineWidth(2);
    DrawCurve(canvas, plot, points, &YieldEnvelopePoint::nominal, kCurveBlue);
    canvas.SetLineWidth(1);
    DrawGoal(canvas, labels, plot, request.goal);
  } else {
    canvas.Text({kLeft, 2000}, "No sweep: the networks are judged at the working frequency alone.");
  }
  const double below = DrawFigures(canvas, Summary(result, request));
  DrawRanking(canvas, result, DrawLegend(canvas, below));
  canvas.SetTextColour(kBlack);
}

}  // namespace kalvex
