#include "analysis/band_plot.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "analysis/band_text.h"
#include "model/format.h"
#include "model/number_text.h"
#include "model/reflection.h"
#include "model/trim.h"
#include "platform/drawing_extent.h"

namespace kalvex {
namespace {

// The plot on the left, the figures in a column on its right.
constexpr double kLeft = 1300;
constexpr double kRight = 7700;
constexpr double kTop = 1000;
constexpr double kBottom = 7600;
constexpr double kFiguresLeft = 8100;
constexpr double kFiguresRight = 11850;
constexpr double kLabelPoints = 9;
constexpr double kFiguresPoints = 8;
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

// The vertical scale: VSWR on a logarithmic axis from 1, which holds a curve
// of 1.2 and one of 28 alike; return loss and |Gamma| linear.
class Plot {
 public:
  Plot(double f1, double f2, double y1, double y2, bool logarithmic)
      : f1_(f1), f2_(f2), y1_(y1), y2_(y2), log_(logarithmic) {}
  double X(double f) const { return kLeft + (f - f1_) / (f2_ - f1_) * (kRight - kLeft); }
  double Y(double v) const {
    const double c = std::clamp(v, y1_, y2_);
    const double share = log_ ? std::log(c / y1_) / std::log(y2_ / y1_) : (c - y1_) / (y2_ - y1_);
    return kBottom - share * (kBottom - kTop);
  }
  double Low() const { return y1_; }
  double High() const { return y2_; }
  bool Logarithmic() const { return log_; }

 private:
  double f1_, f2_, y1_, y2_;
  bool log_;
};

// Puts each label at the first of its candidate places that lies in its
// area and clear of every label placed before it and of the plot's frame;
// a label with no such place is left out rather than drawn over another.
class Labels {
 public:
  explicit Labels(Canvas& canvas) : canvas_(canvas) {}

  bool Place(const std::string& text, std::initializer_list<Point> candidates, const Box& area) {
    for (const Point& at : candidates) {
      const Box box = TextBox(at, text, kLabelPoints);
      if (!box.Inside(area) || CrossesFrame(box)) continue;
      if (std::any_of(placed_.begin(), placed_.end(), [&box](const Box& b) { return b.Overlaps(box); })) continue;
      placed_.push_back(box);
      canvas_.Text(at, text);
      return true;
    }
    return false;
  }
  static double Width(const std::string& text) { return TextBox({}, text, kLabelPoints).right; }
  static double Height() { return TextBox({}, "0", kLabelPoints).bottom; }

 private:
  static bool CrossesFrame(const Box& box) {
    const Box frame{kLeft, kTop, kRight, kBottom};
    return box.Overlaps(frame) && !box.Inside(frame);
  }

  Canvas& canvas_;
  std::vector<Box> placed_;
};

const Box kPage{60, 60, kFiguresLeft - 100, kBandPage.height - 60};
// Inside the frame, clear of its lines.
const Box kInside{kLeft + 40, kTop + 40, kRight - 40, kBottom - 40};

std::vector<double> VerticalTicks(const Plot& plot) {
  std::vector<double> ticks;
  if (!plot.Logarithmic()) {
    const double step = NiceStep(plot.High() - plot.Low());
    for (double v = std::ceil(plot.Low() / step) * step; v <= plot.High() * (1 + 1e-12); v += step) ticks.push_back(v);
    return ticks;
  }
  // 1, 1.5, 2, 3, 5 and 7 of each decade, as far apart as the labels need.
  double lastY = 1e300;
  for (double decade = 1; decade <= plot.High(); decade *= 10) {
    for (const double m : {1.0, 1.5, 2.0, 3.0, 5.0, 7.0}) {
      const double v = m * decade;
      if (v > plot.High()) break;
      if (lastY - plot.Y(v) < 1.6 * Labels::Height()) continue;
      ticks.push_back(v);
      lastY = plot.Y(v);
    }
  }
  return ticks;
}

void DrawAxes(Canvas& canvas, Labels& labels, const Plot& plot, const BandFigures& figures) {
  canvas.SetLineWidth(1);
  canvas.SetTextColour(kBlack);
  // The vertical axis's labels first: the first frequency's label moves
  // right, off the corner, rather than take the bottom value's place.
  for (const double v : VerticalTicks(plot)) {
    canvas.Line({kLeft, plot.Y(v)}, {kRight, plot.Y(v)}, kAxisGrey);
    const std::string text = FormattedNumber("%.4g", v);
    labels.Place(text, {{kLeft - 80 - Labels::Width(text), plot.Y(v) - Labels::Height() / 2}}, kPage);
  }
  const double fStep = NiceStep(figures.high - figures.low);
  for (double f = std::ceil(figures.low / fStep) * fStep; f <= figures.high * (1 + 1e-12); f += fStep) {
    canvas.Line({plot.X(f), kTop}, {plot.X(f), kBottom}, kAxisGrey);
    const std::string text(Trim(FormatSI(f), " "));
    const double w = Labels::Width(text);
    labels.Place(text, {{plot.X(f) - w / 2, kBottom + 80}, {plot.X(f), kBottom + 80}, {plot.X(f) - w, kBottom + 80}},
                 kPage);
  }
  canvas.OutlineRect({kLeft, kTop}, {kRight, kBottom}, kBlack);
  const std::string title = "Frequency (Hz)";
  labels.Place(title, {{(kLeft + kRight - Labels::Width(title)) / 2, kBottom + 100 + 1.3 * Labels::Height()}}, kPage);
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

// The words of `line` in lines no wider than the figures' column; a line
// carried over is indented under the one it continues.
std::vector<std::string> Wrapped(const std::string& line) {
  std::vector<std::string> lines;
  std::string current;
  std::size_t start = 0;
  const std::string indent = line.substr(0, line.find_first_not_of(' ')) + "  ";
  while (start < line.size()) {
    std::size_t end = line.find(' ', line.find_first_not_of(' ', start));
    if (end == std::string::npos) end = line.size();
    const std::string word = line.substr(start, end - start);
    if (!current.empty() && TextBox({kFiguresLeft, 0}, current + word, kFiguresPoints).right > kFiguresRight) {
      lines.push_back(current);
      current = indent + std::string(Trim(word, " "));
    } else {
      current += word;
    }
    start = end;
  }
  if (!current.empty()) lines.push_back(current);
  return lines;
}

// The band's figures as kalvex-cli band reports them, in the column beside the plot.
void DrawFigures(Canvas& canvas, const BandFigures& figures) {
  canvas.SetFont(kFiguresPoints, false);
  canvas.SetTextColour(kBlack);
  const double step = TextBox({}, "0", kFiguresPoints).bottom;
  double y = kTop;
  const std::string report = BandReport(figures);
  std::size_t start = 0;
  while (start < report.size()) {
    const std::size_t end = report.find('\n', start);
    const std::string line = report.substr(start, end - start);
    for (const std::string& piece : Wrapped(line)) {
      canvas.Text({kFiguresLeft, y}, piece);
      y += step;
    }
    y += step / 3;  // a little air between the figures
    start = end == std::string::npos ? report.size() : end + 1;
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
  DrawAxes(canvas, labels, plot, figures);

  // The curve, in frequency order.
  std::vector<BandPoint> ordered = figures.points;
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const BandPoint& a, const BandPoint& b) { return a.frequency < b.frequency; });
  canvas.SetLineWidth(2);
  canvas.MoveTo({plot.X(ordered.front().frequency), plot.Y(Value(quantity, ordered.front().vswr))});
  for (const BandPoint& p : ordered) canvas.LineTo({plot.X(p.frequency), plot.Y(Value(quantity, p.vswr))}, kCurveBlue);
  canvas.SetLineWidth(1);

  DrawMarks(canvas, labels, plot, figures, quantity);
  DrawFigures(canvas, figures);
  canvas.SetTextColour(kBlack);
}

}  // namespace kalvex
