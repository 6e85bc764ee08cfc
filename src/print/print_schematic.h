#pragma once

#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// The network across the top of the printed chart page: the load with its
// value, each stage between thin separators with its values and Q, the
// generator, the stages' colour bars just above the symbols when the colour
// key is on, and "Frequency: …" below. Keeps its cells' edges to itself: the
// Analysis page's strip is left as it is.
void PrintSchematic(const Session& session, Canvas& canvas);

}  // namespace kalvex
