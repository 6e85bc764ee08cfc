#pragma once

#include <string>

#include "model/session.h"
#include "platform/canvas.h"
#include "platform/dialogs.h"

namespace kalvex {

// The chart page as it goes to paper, on `canvas` in kChartPaper units: the
// schematic across the top, the round chart at the screen's radius with the
// paper grids of GridType, its axis and rim, the network's point, the caption,
// the network arcs, Q arcs, VSWR circle and sweep that are on with their
// legends, and the footer with `dateTime`. Sets the grid colours of the
// session as the screen's redraw does; Value, Frequency and SweepPoints end as
// they were.
void DrawChartPage(Session& session, Canvas& canvas, const std::string& dateTime);

// "Print": the print dialog, then the chart page on the printer. A cancelled
// dialog or a printer error ends it without a message.
void PrintChart(Session& session, Dialogs& dialogs);

}  // namespace kalvex
