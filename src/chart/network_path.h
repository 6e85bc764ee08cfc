#pragma once

#include <vector>

#include "model/reflection.h"
#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// One point of the impedance path: the stage being grown and the reflection
// coefficient of the whole network at that moment.
struct PathPoint {
  int stage = 1;
  Gamma gamma;
};

// The path of the impedance through the network, from the load towards the
// generator: each stage in turn grows from a neutral value (no effect) to its
// actual value in 1,000 single-precision steps, the whole network recalculated
// at every step. Points whose impedance is not finite are left out. Leaves Rho
// and DataIndex as the last calculation set them; Value is exactly as before.
// The screen and the paper draw these same points, each in its own way.
std::vector<PathPoint> TraceNetworkPath(Session& session);

// The path on the Analysis page's chart: a dot at its first point, then each
// stage's stretch in the stage's colour, line width 2.
void DrawNetworkArcs(Session& session, Canvas& canvas);

// The colour of stage 1..5's stretch of the path.
Colour StageArcColour(int stage);

}  // namespace kalvex
