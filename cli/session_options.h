#pragma once

#include <optional>
#include <ostream>

#include "cli_options.h"
#include "commands.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// Options that several commands share; each returns an exit code when the
// command must stop, nothing when it may go on.

// The network of the command's FILE (its one positional word) in a fresh
// session with its own load in use (LoadSource 1). False, the reader having
// said why, when it cannot be read.
bool ReadCommandNetwork(const CliArguments& arguments, Session& session, Dialogs& dialogs);

// The view of the chart: --grid 1..6, --zoom 1..8, and the switches
// --q-arcs, --vswr-circle and --sweep. Checks them and puts them in the session.
std::optional<int> ApplyChartOptions(Session& session, const CliArguments& arguments,
                                     const Command& command, std::ostream& err);

// The sweep: --load LOADFILE runs it over a load-data file; otherwise the
// file's start, stop and point count, each replaced by --start, --stop or
// --points, are taken as the sweep setup takes them (limits and messages),
// when `settleSweep` or any of them is given.
std::optional<int> ApplySweepOptions(Session& session, Dialogs& dialogs,
                                     const CliArguments& arguments, const Command& command,
                                     std::ostream& err, bool settleSweep);

}  // namespace kalvex
