#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

inline constexpr const char* kTwoPortFilter = "Two-port Touchstone files (*.s2p)|*.s2p";

// The network of stages 1..5 without its load, over the last sweep's
// frequencies, as a version 1 two-port file: a "! Kalvex" header with
// `dateTime`, "# Hz S RI R <SystemZ>", then per frequency S11 S21 S12 S22 with
// port 1 at the generator and port 2 where the load goes, every number with
// the digits that read back to the same double. A frequency a two-port
// block's file does not cover is left out.
std::string NetworkTwoPortText(const Session& session, const std::string& dateTime);

// Writes NetworkTwoPortText under the chosen name with its type made ".s2p";
// "" when written (or nothing was chosen), else why not.
std::string WriteNetworkTwoPort(const Session& session, Dialogs& dialogs, const std::string& chosenName);

}  // namespace kalvex
