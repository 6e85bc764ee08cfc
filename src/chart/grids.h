#pragma once

#include "chart/chart_view.h"
#include "platform/canvas.h"

namespace kalvex {

// The two coordinate grids of the Smith chart, with their labels, at a view.
// Every curve is a polyline through points a few degrees apart.

// Constant-resistance circles and constant-reactance arcs: the fine lines in
// pale red, the main ones (r and x of .2, .5, 1, 2, 5) and the labels in
// `colour`, with the crowded inside of the r = 5 circle whitened first.
void DrawImpedanceGrid(Canvas& canvas, const ChartView& view, Colour colour);

// Constant-susceptance arcs and constant-conductance circles, main lines only.
void DrawAdmittanceGrid(Canvas& canvas, const ChartView& view, Colour colour);

}  // namespace kalvex
