#include "analysis/frequency_plot.h"

#include <algorithm>
#include <cmath>

#include "model/format.h"
#include "model/number_text.h"
#include "model/trim.h"

namespace kalvex::frequency_plot {
namespace {

bool CrossesFrame(const Box& box) {
  const Box frame{kLeft, kTop, kRight, kBottom};
  return box.Overlaps(frame) && !box.Inside(frame);
}

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

}  // namespace

double NiceStep(double span) {
  const double raw = span / 5;
  const double power = std::pow(10.0, std::floor(std::log10(raw)));
  for (const double m : {1.0, 2.0, 5.0}) {
    if (m * power >= raw) return m * power;
  }
  return 10 * power;
}

std::string Hertz(double f) { return std::string(Trim(FormatSI(f), " ")) + "Hz"; }

double Plot::Y(double v) const {
  const double c = std::clamp(v, y1_, y2_);
  const double share = log_ ? std::log(c / y1_) / std::log(y2_ / y1_) : (c - y1_) / (y2_ - y1_);
  return kBottom - share * (kBottom - kTop);
}

bool Labels::Place(const std::string& text, std::initializer_list<Point> candidates, const Box& area) {
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

void DrawAxes(Canvas& canvas, Labels& labels, const Plot& plot) {
  canvas.SetLineWidth(1);
  canvas.SetTextColour(kBlack);
  // The vertical axis's labels first: the first frequency's label moves
  // right, off the corner, rather than take the bottom value's place.
  for (const double v : VerticalTicks(plot)) {
    canvas.Line({kLeft, plot.Y(v)}, {kRight, plot.Y(v)}, kAxisGrey);
    const std::string text = FormattedNumber("%.4g", v);
    labels.Place(text, {{kLeft - 80 - Labels::Width(text), plot.Y(v) - Labels::Height() / 2}}, kPage);
  }
  const double low = plot.LowFrequency();
  const double high = plot.HighFrequency();
  const double fStep = NiceStep(high - low);
  for (double f = std::ceil(low / fStep) * fStep; f <= high * (1 + 1e-12); f += fStep) {
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

double DrawFigures(Canvas& canvas, const std::string& report, double top) {
  canvas.SetFont(kFiguresPoints, false);
  canvas.SetTextColour(kBlack);
  const double step = TextBox({}, "0", kFiguresPoints).bottom;
  double y = top;
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
  return y;
}

}  // namespace kalvex::frequency_plot
