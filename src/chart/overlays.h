#pragma once

#include <vector>

#include "model/reflection.h"
#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// The range the setup dialogs accept.
inline constexpr float kMinQCircle = 0.1f;
inline constexpr float kMaxQCircle = 20;
inline constexpr float kMinVSWRCircle = 1.01f;
inline constexpr float kMaxVSWRCircle = 20;

// The points of the two overlays, which the screen and the paper draw each in
// their own way.

// Brings a QCircle left outside 0.1..20 by a refused entry into range (0
// becomes 2), as drawing the arcs does.
void ClampQCircle(Session& session);
// One constant-Q arc through Γ = −1 and Γ = +1, above (sign +1, inductive) or
// below (−1) the axis, at 0.1 degree steps from 0 to 180: every impedance on
// it has |X| / R = q.
std::vector<Gamma> QArcPoints(double q, double sign);
// The VSWR a circle is drawn for: VSWRCircle within 1.01..20.
double DrawnVSWR(float vswrCircle);
// The circle of constant VSWR: 73 points 5 degrees apart, the last on the first.
std::vector<Gamma> VSWRCirclePoints(double vswr);

// The Q arcs on the Analysis page's chart, when QArcsOn: teal within the
// chart's width, white beyond it, and the text "Q=…" below the chart caption.
void DrawQArcs(Session& session, Canvas& canvas);

// The VSWR circle on the chart, when VSWRCircleOn, and the text "VSWR=…". A
// VSWRCircle left outside 1.01..20 by a refused entry is drawn (and named)
// clamped into that range; the session keeps it as it is.
void DrawVSWRCircle(const Session& session, Canvas& canvas);

}  // namespace kalvex
