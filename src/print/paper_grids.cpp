#include "print/paper_grids.h"

#include "chart/grids.h"

namespace kalvex {
namespace {

// A label's top-left corner: (Xc + xR × R + xC, Yc + yR × R + yC).
struct PaperLabel {
  const char* text;
  double xR, xC, yR, yC;
};

constexpr PaperLabel kImpedanceLabels[] = {
    {"+2", 0.66, -300, -0.79, -330},  {"+1", 0, -240, -0.999, -240}, {"+.5", -0.62, -300, -0.82, -60},
    {"+.2", -0.97, -120, -0.38, -240}, {"0", -1.02, -120, 0, -90},   {"-.2", -0.97, -120, 0.38, 0},
    {"-.5", -0.62, -300, 0.82, -90},  {"-1", 0, -180, 1.01, 0},      {"-2", 0.66, -300, 0.79, 180},
    {".2", -0.67, -210, 0, -120},     {".5", -0.33, -240, 0, -120},  {"1", 0, -120, 0, -120},
    {"2", 0.33, -120, 0, -120},       {"5", 0.66, -120, 0, -120}};

constexpr PaperLabel kAdmittanceLabels[] = {
    {"-.5", 0.66, -90, -0.79, -180}, {"-1", 0, 60, -0.999, -240},  {"-2", -0.62, 0, -0.82, -210},
    {"-.2", 0.97, -120, -0.38, -180}, {"0", 1.02, 0, 0, -30},       {"+.2", 0.97, -120, 0.38, 90},
    {"+2", -0.62, -60, 0.82, 30},    {"+1", 0, 30, 1.01, 0},       {"+.5", 0.66, -120, 0.79, -30},
    {"5", -0.67, 60, 0, -120},       {"2", -0.33, 30, 0, -120},    {"1", 0, 30, 0, -120},
    {".5", 0.33, 30, 0, -120},       {".2", 0.66, 30, 0, -120}};

template <std::size_t N>
void PrintLabels(Canvas& canvas, const ChartView& paper, Colour colour,
                 const PaperLabel (&labels)[N]) {
  canvas.SetTextColour(colour);
  for (const PaperLabel& label : labels) {
    canvas.Text({paper.centreX + label.xR * paper.radius + label.xC,
                 paper.centreY + label.yR * paper.radius + label.yC},
                label.text);
  }
}

}  // namespace

void PrintImpedanceGrid(Canvas& canvas, const ChartView& paper, Colour colour) {
  for (const double r : {5.0, 2.0, 1.0, 0.5, 0.2}) DrawResistanceCircle(canvas, paper, colour, r);
  struct PaperArc {
    double x, fromMinus, fromPlus, to, step;
  };
  for (const PaperArc arc : {PaperArc{2, 142, 144, 234, 2}, PaperArc{1, 180, 180, 251, 1},
                             PaperArc{0.5, 217, 217, 260.5, 0.5},
                             PaperArc{0.2, 247.5, 247.5, 266.2, 0.2}}) {
    DrawReactanceArc(canvas, paper, colour, arc.x, -1, arc.fromMinus, arc.to, arc.step);
    DrawReactanceArc(canvas, paper, colour, arc.x, +1, arc.fromPlus, arc.to, arc.step);
  }
  PrintLabels(canvas, paper, colour, kImpedanceLabels);
}

void PrintAdmittanceGrid(Canvas& canvas, const ChartView& paper, Colour colour) {
  for (const SusceptanceArc& arc : kSusceptanceArcs) {
    DrawSusceptanceArc(canvas, paper, colour, arc, -1);
    DrawSusceptanceArc(canvas, paper, colour, arc, +1);
  }
  for (const double g : kConductanceCircles) DrawConductanceCircle(canvas, paper, colour, g);
  PrintLabels(canvas, paper, colour, kAdmittanceLabels);
}

}  // namespace kalvex
