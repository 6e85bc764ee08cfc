#pragma once

#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// The pair of constant-Q arcs for QCircle (every impedance on them has
// |X| / R = Q), when QArcsOn: teal where they lie within the chart's width,
// white beyond it, and the text "Q=…" below the chart caption. A QCircle left
// outside 0.1..20 is brought into range first (0 becomes 2).
void DrawQArcs(Session& session, Canvas& canvas);

// The circle of constant VSWR for VSWRCircle, when VSWRCircleOn, and the text
// "VSWR=…". A VSWRCircle left outside 1.01..20 by a refused entry is drawn
// (and named) clamped into that range; the session keeps it as it is.
void DrawVSWRCircle(const Session& session, Canvas& canvas);

// The range the setup dialogs accept.
inline constexpr float kMinQCircle = 0.1f;
inline constexpr float kMaxQCircle = 20;
inline constexpr float kMinVSWRCircle = 1.01f;
inline constexpr float kMaxVSWRCircle = 20;

}  // namespace kalvex
