#pragma once

#include <string>

#include "chart/chart_view.h"
#include "model/reflection.h"
#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

inline constexpr Colour kSweepPointColour = RGB(17, 136, 17);

// Marks one swept point: a circle of radius 30 around Γ's place on the chart,
// line width 1. Returns that place, where a marker may follow. A Γ that is not
// finite is not drawn.
Point PlotSweepPoint(Canvas& canvas, const ChartView& view, Gamma gamma, Colour colour);

// The ringed letter ("S" or "F") at the point just plotted, over a white disc
// that clears the chart beneath it, and its legend lines at the lower left of
// the chart: "'S'= 14 MHz" (or 'F' one row lower) and "N points".
void DrawSweepMarker(Canvas& canvas, Point at, Colour ring, const std::string& letter,
                     double frequency, int pointCount);

}  // namespace kalvex
