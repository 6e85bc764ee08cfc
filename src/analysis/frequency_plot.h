#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "platform/canvas.h"
#include "platform/drawing_extent.h"

namespace kalvex::frequency_plot {

// The pages that plot a quantity against frequency (the band plot, the
// yield): the plot on the left, figures in a column on its right.
inline constexpr double kLeft = 1300;
inline constexpr double kRight = 7700;
inline constexpr double kTop = 1000;
inline constexpr double kBottom = 7600;
inline constexpr double kFiguresLeft = 8100;
inline constexpr double kFiguresRight = 11850;
inline constexpr double kLabelPoints = 9;
inline constexpr double kFiguresPoints = 8;
inline constexpr Colour kBlack = 0;
inline constexpr Colour kAxisGrey = RGB(190, 190, 190);
// The network's curve, a VSWR threshold or goal, and the worst point or case:
// the same in every plot.
inline constexpr Colour kCurveBlue = RGB(17, 17, 255);
inline constexpr Colour kThresholdOrange = RGB(238, 153, 17);
inline constexpr Colour kEdgeRed = RGB(255, 17, 17);

// Where labels may go: the page left of the figures, and inside the frame
// clear of its lines.
inline constexpr Box kPage{60, 60, kFiguresLeft - 100, 9000 - 60};
inline constexpr Box kInside{kLeft + 40, kTop + 40, kRight - 40, kBottom - 40};

// A step of 1, 2 or 5 times a power of ten that cuts `span` into about five parts.
double NiceStep(double span);

// "14.2 MHz".
std::string Hertz(double f);

// The scales: frequency across; down, a logarithmic axis from 1 (for VSWR,
// which holds a curve of 1.2 and one of 28 alike) or a linear one.
class Plot {
 public:
  Plot(double f1, double f2, double y1, double y2, bool logarithmic)
      : f1_(f1), f2_(f2), y1_(y1), y2_(y2), log_(logarithmic) {}
  double X(double f) const { return kLeft + (f - f1_) / (f2_ - f1_) * (kRight - kLeft); }
  // Values beyond the axis stay on its ends.
  double Y(double v) const;
  double Low() const { return y1_; }
  double High() const { return y2_; }
  double LowFrequency() const { return f1_; }
  double HighFrequency() const { return f2_; }
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

  bool Place(const std::string& text, std::initializer_list<Point> candidates, const Box& area);
  static double Width(const std::string& text) { return TextBox({}, text, kLabelPoints).right; }
  static double Height() { return TextBox({}, "0", kLabelPoints).bottom; }

 private:
  Canvas& canvas_;
  std::vector<Box> placed_;
};

// The frame, its grid and the labels of both axes, with "Frequency (Hz)" under it.
void DrawAxes(Canvas& canvas, Labels& labels, const Plot& plot);

// `report`'s lines in the figures column from `top`, each wrapped to the
// column's width; returns where the next line would go.
double DrawFigures(Canvas& canvas, const std::string& report, double top = kTop);

}  // namespace kalvex::frequency_plot
