#include "chart/grids.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace kalvex {
namespace {

constexpr Colour kFineRed = RGB(255, 170, 170);
constexpr double kDegree = std::numbers::pi / 180;

// A curve of the chart: Γ at angle a (degrees) for a from `from` to `to`.
template <typename GammaAt>
void Curve(Canvas& canvas, const ChartView& view, Colour colour, double from, double to,
           double step, GammaAt gammaAt) {
  bool first = true;
  for (double a = from; a <= to; a += step) {
    const Point p = view.GammaToPage(gammaAt(a * kDegree));
    if (first) {
      canvas.MoveTo(p);
      first = false;
    } else {
      canvas.LineTo(p, colour);
    }
  }
}

// The arcs of +x and of −x, from where they leave the unit circle to Γ = 1.
void ReactanceArcs(Canvas& canvas, const ChartView& view, Colour colour, double x,
                   double stepPlus, double stepMinus) {
  const float a0 = static_cast<float>(90 + 2 * std::atan(1 / x) / kDegree);
  DrawReactanceArc(canvas, view, colour, x, +1, a0, 270, stepPlus);
  DrawReactanceArc(canvas, view, colour, x, -1, a0, 270, stepMinus);
}

// The fine values of r and x: 0.1 steps below 1 and 0.2 steps below 2, each
// run accumulated in single precision as the chart always has, then 2..5.
std::vector<double> FineValues(bool withZero) {
  std::vector<double> values;
  for (float r = withZero ? 0.0f : 0.1f; r < 1; r += 0.1f) values.push_back(r);
  for (float r = 1; r < 2; r += 0.2f) values.push_back(r);
  for (const double r : {2, 3, 4, 5}) values.push_back(r);
  return values;
}

// A label's place: X = Xc + A × (aR × R + aC) + c, Y = Yc + yR × R + yC.
struct Label {
  const char* text;
  double aR, aC, c, yR, yC;
};

constexpr Label kImpedanceLabels[] = {
    {"+5", 0.92, 0, 15, -0.39, -210},    {"+2", 0.6, 0, -120, -0.8, -240},
    {"+1", 0, 0, -180, -0.999, -240},    {"+.5", -0.62, -240, 0, -0.82, -60},
    {"+.2", -0.97, -90, 0, -0.38, -240}, {"0", -1.02, -60, 0, 0, -90},
    {"-.2", -0.97, -90, 0, 0.38, 0},     {"-.5", -0.62, -180, 0, 0.82, -90},
    {"-1", 0, 0, -180, 1.01, 0},         {"-2", 0.6, 0, -45, 0.8, 60},
    {"-5", 0.93, 0, 1, 0.39, -60},       {".2", -0.67, -120, 0, 0, -70},
    {".5", -0.33, -120, 0, 0, -70},      {"1", 0, 0, -60, 0, -70},
    {"2", 0.33, -60, 0, 0, -70},         {"5", 0.66, 60, 0, 0, -70}};

constexpr Label kAdmittanceLabels[] = {
    {"-.5", 0.66, -90, 0, -0.79, -180},  {"-1", 0, 0, 90, -0.999, -240},
    {"-2", -0.62, 0, 0, -0.82, -210},    {"-.2", 0.97, -120, 0, -0.38, -90},
    {"0", 1.02, 0, 0, 0, -120},          {"+.2", 0.97, -120, 0, 0.38, 90},
    {"+2", -0.62, 60, 0, 0.82, 30},      {"+1", 0, 0, 90, 1.01, 0},
    {"+.5", 0.66, -120, 0, 0.79, -30},   {"5", -0.67, 60, 0, 0, -170},
    {"2", -0.33, 60, 0, 0, -170},        {"1", 0, 0, 30, 0, -170},
    {".5", 0.33, 30, 0, 0, -170},        {".2", 0.66, 30, 0, 0, -170}};

template <std::size_t N>
void DrawLabels(Canvas& canvas, const ChartView& view, const Label (&labels)[N]) {
  const double a = view.aspect;
  const double r = view.radius;
  for (const Label& label : labels) {
    canvas.Text({view.centreX + a * (label.aR * r + label.aC) + label.c,
                 view.centreY + label.yR * r + label.yC},
                label.text);
  }
}

}  // namespace

void DrawResistanceCircle(Canvas& canvas, const ChartView& view, Colour colour, double r) {
  Curve(canvas, view, colour, 0, 360, 2, [r](double a) {
    return Gamma{r / (r + 1) + std::cos(a) / (r + 1), std::sin(a) / (r + 1)};
  });
}

void DrawReactanceArc(Canvas& canvas, const ChartView& view, Colour colour, double x,
                      double sign, double from, double to, double step) {
  Curve(canvas, view, colour, from, to, step, [x, sign](double a) {
    return Gamma{1 + std::cos(a) / x, sign * (1 + std::sin(a)) / x};
  });
}

void DrawSusceptanceArc(Canvas& canvas, const ChartView& view, Colour colour,
                        const SusceptanceArc& arc, double sign) {
  const double scale = 1 / arc.b;
  Curve(canvas, view, colour, arc.from, arc.to, arc.step, [scale, sign](double a) {
    return Gamma{-1 - scale * std::cos(a), sign * (scale + scale * std::sin(a))};
  });
}

void DrawConductanceCircle(Canvas& canvas, const ChartView& view, Colour colour, double g) {
  Curve(canvas, view, colour, 0, 360, 2, [g](double a) {
    return Gamma{-g / (1 + g) + std::cos(a) / (1 + g), std::sin(a) / (1 + g)};
  });
}

void DrawImpedanceGrid(Canvas& canvas, const ChartView& view, Colour colour) {
  for (const double r : FineValues(true)) DrawResistanceCircle(canvas, view, kFineRed, r);
  for (const double r : {2.0, 1.0, 0.5, 0.2}) DrawResistanceCircle(canvas, view, colour, r);
  for (const double x : FineValues(false)) ReactanceArcs(canvas, view, kFineRed, x, 2, 2);
  // The fine arcs crowd together inside r = 5: whiten it.
  canvas.FillEllipse(view.GammaToPage({5.0 / 6, 0}), view.aspect * view.radius / 6,
                     view.radius / 6, kWhite);
  DrawResistanceCircle(canvas, view, colour, 5);
  struct MainArc {
    double x, stepPlus, stepMinus;
  };
  for (const MainArc arc : {MainArc{5, 2, 2}, MainArc{2, 2, 2}, MainArc{1, 1, 1},
                            MainArc{0.5, 0.5, 1}, MainArc{0.2, 0.2, 0.2}}) {
    ReactanceArcs(canvas, view, colour, arc.x, arc.stepPlus, arc.stepMinus);
  }
  canvas.SetTextColour(colour);
  DrawLabels(canvas, view, kImpedanceLabels);
}

void DrawAdmittanceGrid(Canvas& canvas, const ChartView& view, Colour colour) {
  for (const SusceptanceArc& arc : kSusceptanceArcs) {
    DrawSusceptanceArc(canvas, view, colour, arc, +1);
    DrawSusceptanceArc(canvas, view, colour, arc, -1);
  }
  for (const double g : kConductanceCircles) DrawConductanceCircle(canvas, view, colour, g);
  canvas.SetTextColour(colour);
  DrawLabels(canvas, view, kAdmittanceLabels);
  canvas.SetTextColour(0);
}

}  // namespace kalvex
