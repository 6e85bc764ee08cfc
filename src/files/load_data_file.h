#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

inline constexpr const char* kLoadDataTitle = "Get frequencies and load data";
inline constexpr const char* kLoadDataFilter =
    "Kalvex load data files (*.RJX)|*.RJX|Touchstone one-port files (*.s1p *.S1P)|*.s1p;*.S1P";

// Takes the next comma-separated field off the front of `line`: commas before
// it are skipped, and `line` keeps the text after the commas that follow it.
// When nothing but commas is left, `line` becomes "" and `field` is unchanged.
void NextField(std::string& line, std::string& field);

// Reads a load-data file (or a one-port Touchstone file, see ReadTouchstone) into LoadFreq, LoadR and LoadX from index 1 on, at
// most 1000 points, leaving their count in SweepPoints (its earlier value goes
// to SavedSweepPoints). A file that cannot be opened, that ends with blank or
// comment lines, or that holds more than 1000 points gives "Parser error" and
// clears FileName; the points read before stay. An empty name reads nothing.
void ParseLoadFile(Session& session, Dialogs& dialogs, const std::string& name);

// The Design page's "Get freq/load" after its file chooser: reads the file and,
// when it gave points, switches to load-data mode (LoadSource 2), takes the
// sweep range from the first and last points and the load and Frequency from
// the middle one (DataIndex). When it gave none (a cancelled chooser, an empty
// or unreadable file), the sweep settings are restored and LoadSource is 1.
// Returns true when the table was loaded.
bool ApplyLoadDataFile(Session& session, Dialogs& dialogs, const std::string& name);

// "Get freq/load": the load-data chooser, then ApplyLoadDataFile.
bool GetLoadData(Session& session, Dialogs& dialogs);

}  // namespace kalvex
