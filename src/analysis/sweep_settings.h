#pragma once

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// Takes a manual sweep definition as the sweep setup accepts it: frequencies
// made positive, then start and stop kept within 5 kHz..10 GHz (5.01 kHz for
// the stop) with a message for each reset, and the point count within 3..2000
// without one. Sets LoadSource to 1 (manual definition).
void AcceptSweepSettings(Session& session, Dialogs& dialogs, double start, double stop,
                         double points);

}  // namespace kalvex
