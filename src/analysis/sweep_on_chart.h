#pragma once

#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// The sweep on the chart, when SweepShown: runs the sweep of the current
// settings (manual or over the load-data table, the Tabulate page's routine)
// and marks every point, "S" after the first and "F" after the last, with the
// legend. Frequency and SweepPoints end as they were.
void RunSweep(Session& session, Canvas& canvas);

}  // namespace kalvex
