#pragma once

#include "chart/chart_view.h"
#include "platform/canvas.h"

namespace kalvex {

// The paper's grids: main lines only, no fine lines, no clearing and no x = 5
// arc, with labels placed for the round paper chart. Each leaves the text
// colour at its own colour.
void PrintImpedanceGrid(Canvas& canvas, const ChartView& paper, Colour colour);
void PrintAdmittanceGrid(Canvas& canvas, const ChartView& paper, Colour colour);

}  // namespace kalvex
