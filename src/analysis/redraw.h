#pragma once

#include "model/session.h"
#include "platform/canvas.h"
#include "platform/pages.h"

namespace kalvex {

// The full redraw of the Analysis page, in this order: background, white chart
// face, the grids of GridType, the real axis, the outline, the caption, the
// network strip (with its colour key), the path of the network and the colour
// key again, then the Q arcs, the VSWR circle and the sweep when they are on,
// which paint over the key. Sets the grid colours of the session from GridType.
void RedrawChart(Session& session, Canvas& canvas);

// What every change on the Analysis page ends with: the network strip drawn
// again, so that its cells' edges (which the strip's clearing reads) follow the
// network as it is now, then the full redraw.
void RefreshAnalysis(Session& session, Canvas& canvas);

// "Grid type": steps 1..6 and round again.
void StepGridType(Session& session);

// "Chart normalized to 50 ohms".
std::string ChartCaption(double systemZ);

}  // namespace kalvex
