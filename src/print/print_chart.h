#pragma once

#include <string>

#include "model/session.h"
#include "platform/canvas.h"
#include "platform/dialogs.h"
#include "platform/display_list.h"
#include "platform/pages.h"

namespace kalvex {

// The chart page as it goes to paper, on `canvas` in kChartPaper units: the
// schematic across the top, the round chart at the screen's radius with the
// paper grids of GridType, its axis and rim, the network's point, the caption,
// the network arcs, Q arcs, VSWR circle and sweep that are on with their
// legends, and the footer with `dateTime`. Sets the grid colours of the
// session as the screen's redraw does; Value, Frequency and SweepPoints end as
// they were.
void DrawChartPage(Session& session, Canvas& canvas, const std::string& dateTime);

// The units the chart page `page` is printed in: kChartPaper, widened and
// lengthened where the drawing reaches past it (the strip of five long stages
// ends beyond its right edge), so that the printable area holds it whole.
PageSize ChartPaperFor(const DisplayList& page);

// "Print": the print dialog, then the chart page on the printer. A cancelled
// dialog or a printer error ends it without a message.
void PrintChart(Session& session, Dialogs& dialogs);

}  // namespace kalvex
