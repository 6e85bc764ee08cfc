#pragma once

#include "chart/chart_view.h"
#include "platform/colour.h"
#include "platform/pages.h"

namespace kalvex {

// The printed chart page: 11500 units across and 15200 down the printable
// area, the round chart centred at (6000, 7500) at the screen's radius.
inline constexpr PageSize kChartPaper{11500, 15200};

inline ChartView PaperChartView(double radius) { return {6000, 7500, radius, 1}; }

// The colours of the stages on paper (network arcs and colour bars); stages 3
// to 5 differ from the screen's so that they stand out on white.
Colour PaperStageColour(int stage);

// The maker's text under the program's name in the printed footers.
inline constexpr const char* kMakerAddress = "  www.kalvex.example";

}  // namespace kalvex
