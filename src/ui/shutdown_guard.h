#pragma once

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// The ways out that come from outside the program: SIGTERM and SIGHUP (a
// system shut down, a terminal closed) end it as a page's close box does,
// with the last session written first, and the desktop's logout writes the
// last session before the desktop ends the program. Installed once, after
// the application object exists.
void SaveSessionOnShutdown(const Session& session, Dialogs& dialogs);

}  // namespace kalvex
