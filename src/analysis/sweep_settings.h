#pragma once

#include "model/session.h"
#include "platform/box_rewrite.h"
#include "platform/dialogs.h"

namespace kalvex {

// Takes a manual sweep definition as the sweep setup accepts it: frequencies
// made positive, then start and stop kept within 5 kHz..10 GHz (5.01 kHz for
// the stop) with a message for each reset, and the point count within 3..2000
// without one. Sets LoadSource to 1 (manual definition). A reset frequency is
// written into box 0 (start) or 1 (stop) by `rewrite` before its message.
void AcceptSweepSettings(Session& session, Dialogs& dialogs, double start, double stop,
                         double points, const BoxRewrite& rewrite = {});

// The Analysis page's tests of the sweep settings, all strict. On the page's
// load (for the sweep's switch) and at every sweep on the chart (for the
// Tabulate button): start above 5 kHz, stop above 5.01 kHz, more than 2 points.
bool SweepSettingsUsable(const Session& session);
// After the sweep setup closes: whether start, stop and points are all above
// 0, for the sweep to be switched on and drawn.
bool SweepDefined(const Session& session);
// After the sweep setup closes, for the sweep's switch: start above 10 kHz,
// stop above 10.1 kHz, more than 2 points.
bool SweepSettingsSwitchable(const Session& session);

}  // namespace kalvex
