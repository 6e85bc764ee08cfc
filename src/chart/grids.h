#pragma once

#include "chart/chart_view.h"
#include "platform/canvas.h"

namespace kalvex {

// The strong colours of the grids, rims and labels, and of the overlays, that
// the screen and the paper share.
inline constexpr Colour kStrongRed = RGB(255, 17, 17);
inline constexpr Colour kStrongGreen = RGB(17, 136, 17);
inline constexpr Colour kQArcTeal = RGB(17, 187, 187);
inline constexpr Colour kVSWRRed = RGB(136, 17, 17);

// The two coordinate grids of the Smith chart, with their labels, at a view.
// Every curve is a polyline through points a few degrees apart.

// The curves both grids are made of, each a polyline in `colour`, angles in
// degrees accumulated in double precision, the loop running while at most `to`.

// The circle of resistance r, a = 0..360 in steps of 2.
void DrawResistanceCircle(Canvas& canvas, const ChartView& view, Colour colour, double r);
// The arc of reactance x above (sign +1) or below (−1) the real axis.
void DrawReactanceArc(Canvas& canvas, const ChartView& view, Colour colour, double x,
                      double sign, double from, double to, double step);
// An arc of susceptance b, above (sign +1, inductive) or below (−1) the axis,
// from the unit circle to the g = 5 circle.
struct SusceptanceArc {
  double b, from, to, step;
};
inline constexpr SusceptanceArc kSusceptanceArcs[] = {
    {2, 142, 233, 1}, {1, 180, 251, 1}, {0.5, 217, 260.5, 0.5}, {0.2, 247.5, 266.2, 0.2}};
void DrawSusceptanceArc(Canvas& canvas, const ChartView& view, Colour colour,
                        const SusceptanceArc& arc, double sign);
// The circle of conductance g, a = 0..360 in steps of 2.
inline constexpr double kConductanceCircles[] = {0.2, 0.5, 1, 2, 5};
void DrawConductanceCircle(Canvas& canvas, const ChartView& view, Colour colour, double g);

// Constant-resistance circles and constant-reactance arcs: the fine lines in
// pale red, the main ones (r and x of .2, .5, 1, 2, 5) and the labels in
// `colour`, with the crowded inside of the r = 5 circle whitened first.
void DrawImpedanceGrid(Canvas& canvas, const ChartView& view, Colour colour);

// Constant-susceptance arcs and constant-conductance circles, main lines only.
void DrawAdmittanceGrid(Canvas& canvas, const ChartView& view, Colour colour);

}  // namespace kalvex
