#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// Whether a load-data file is a Touchstone file: its type is ".sNp" (any case).
bool IsTouchstoneName(const std::string& name);

// Reads a one-port Touchstone file (version 1 option line "# <unit> <S|Z|Y>
// <MA|DB|RI> R <n>", defaults GHz S MA R 50, or version 2 keywords) into the
// load-data table, LoadFreq, LoadR and LoadX from index 1 on, every point
// turned into the load R + jX in ohms at the file's reference impedance and
// the points sorted by frequency. The table's limits are the load-data file's:
// at most 1000 points, "Parser error" with the points read so far kept. A
// file of more ports, or without points, is refused with its own message and
// gives none. The count is left in SweepPoints.
void ReadTouchstone(Session& session, Dialogs& dialogs, const std::string& name);

// The last sweep's input reflection as a version 1.1 one-port file: a "!
// Kalvex" header with `dateTime`, "# Hz S RI R <SystemZ>", one line per point
// at full precision.
std::string TouchstoneText(const Session& session, const std::string& dateTime);

}  // namespace kalvex
