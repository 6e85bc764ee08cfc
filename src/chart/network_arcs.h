#pragma once

#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// The path of the impedance through the network, drawn on the chart: each
// stage in turn grows from a neutral value (no effect) to its actual value in
// 1,000 steps, the whole network recalculated at every step, in the stage's
// colour. Starts with a dot at the load and ends at the input impedance;
// Value is exactly as before when it returns.
void DrawNetworkArcs(Session& session, Canvas& canvas);

// The colour of stage 1..5's stretch of the path.
Colour StageArcColour(int stage);

}  // namespace kalvex
