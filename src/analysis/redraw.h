#pragma once

#include "model/session.h"
#include "platform/canvas.h"
#include "platform/pages.h"

namespace kalvex {

// The full redraw of the Analysis page: background, white chart face, the
// grids of GridType, the real axis, the outline, the caption, the network
// strip, then the path of the network and the strip's colour key. Sets the
// grid colours of the session from GridType.
void RedrawChart(Session& session, Canvas& canvas);

// "Grid type": steps 1..6 and round again.
void StepGridType(Session& session);

// "Chart normalized to 50 ohms".
std::string ChartCaption(double systemZ);

}  // namespace kalvex
