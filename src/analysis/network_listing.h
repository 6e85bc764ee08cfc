#pragma once

#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// The network strip across the top of the Analysis page: the load, each part
// with its values at the working frequency, and the generator, with the
// selected cell framed. Writes PartRightEdge (the right edge of each cell).
// Draws nothing while Frequency is 0 or less.
void DrawNetworkListing(Session& session, Canvas& canvas);

// Whether the strip shows any part (a stage of a part type whose first value
// is above 0), for the "Click on a part" hint.
bool AnyPartShown(const Session& session);

// The colour key over the strip: a bar over each stage's cell in the colour
// of its stretch of the chart's path (stage 2 a brighter red).
void DrawColourBars(const Session& session, Canvas& canvas);

// The cell under a click at x: 0 for the load, 1..5 for a stage, -1 for none.
// Each edge belongs to the cell on its left.
int PartAt(const Session& session, double x);

inline constexpr double kStripBottom = 1500;  // clicks above it belong to the strip

}  // namespace kalvex
