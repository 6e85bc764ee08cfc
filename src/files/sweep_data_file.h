#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

inline constexpr const char* kSweepDataFilter = "Kalvex data files (*.DAT)|*.DAT";

// The text of a sweep-data file for the points the last sweep filled: six
// heading lines ("Filename: " names `chosenName` as given), one row of seven
// numbers per point, and an empty last line.
std::string SweepDataText(const Session& session, const std::string& chosenName,
                          const std::string& dateTime);

// Writes SweepDataText under the chosen name with its type made ".DAT". Writes
// nothing for an empty name; returns false, without a message, on a failure.
bool WriteSweepData(const Session& session, Dialogs& dialogs, const std::string& chosenName);

}  // namespace kalvex
