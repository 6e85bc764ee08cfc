#include "session_options.h"

#include <cmath>

#include "analysis/sweep_settings.h"
#include "chart/chart_view.h"
#include "cli.h"
#include "files/load_data_file.h"
#include "files/network_file.h"
#include "model/format.h"

namespace kalvex {

bool ReadCommandNetwork(const CliArguments& arguments, Session& session, Dialogs& dialogs) {
  InitialiseSession(session);
  session.LoadSource = 1;
  return ReadNetworkFile(session, dialogs, arguments.positional.front());
}

std::optional<int> ApplyChartOptions(Session& session, const CliArguments& arguments,
                                     const Command& command, std::ostream& err) {
  const auto grid = CliNumber(arguments.Option("--grid").value_or("1"));
  const auto zoom = CliNumber(arguments.Option("--zoom").value_or("1"));
  if (!grid || *grid < 1 || *grid > 6 || *grid != std::floor(*grid)) {
    return UsageError(command, "--grid takes a grid type 1..6", err);
  }
  if (!zoom || *zoom < 1 || *zoom > kMaxZoom) {
    return UsageError(command, "--zoom takes a zoom factor from 1 to 8", err);
  }
  session.GridType = static_cast<int16_t>(*grid);
  session.ChartZoom = static_cast<float>(*zoom);
  session.QArcsOn = arguments.Option("--q-arcs") ? 1 : 0;
  session.VSWRCircleOn = arguments.Option("--vswr-circle") ? 1 : 0;
  session.SweepShown = arguments.Option("--sweep") ? 1 : 0;
  return std::nullopt;
}

std::optional<int> ApplySweepOptions(Session& session, Dialogs& dialogs,
                                     const CliArguments& arguments, const Command& command,
                                     std::ostream& err, bool settleSweep) {
  const auto load = arguments.Option("--load");
  const auto start = arguments.Option("--start");
  const auto stop = arguments.Option("--stop");
  const auto points = arguments.Option("--points");
  if (load && (start || stop || points)) {
    return UsageError(command,
                      "--load takes its frequencies from the file: no --start, --stop or --points",
                      err);
  }
  if (load) {
    if (!ApplyLoadDataFile(session, dialogs, *load)) return kExitFailed;
    return std::nullopt;
  }
  if (settleSweep || start || stop || points) {
    // Option texts read as the sweep setup's boxes do, limits and messages included.
    AcceptSweepSettings(session, dialogs,
                        start ? ParseValue(*start) : session.SweepStart,
                        stop ? ParseValue(*stop) : session.SweepStop,
                        points ? ParseValue(*points) : session.SweepPoints);
  }
  return std::nullopt;
}

}  // namespace kalvex
