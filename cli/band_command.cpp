#include <sstream>

#include "analysis/band.h"
#include "analysis/band_text.h"
#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "session_options.h"

namespace kalvex {

int RunBandCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(
      words, {"--start", "--stop", "--points", "--load", "--thresholds", "-o"}, {"--json"}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);
  std::vector<double> thresholds = kDefaultThresholds;
  if (const auto list = arguments->Option("--thresholds")) {
    thresholds.clear();
    std::istringstream words(*list);
    for (std::string word; std::getline(words, word, ',');) {
      const auto value = CliNumber(word);
      if (!value || *value <= 1) return UsageError(command, "--thresholds takes VSWR values above 1, such as 1.5,2,3", err);
      thresholds.push_back(*value);
    }
  }
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  if (const auto stop = ApplySweepOptions(session, dialogs, *arguments, command, err, true)) return *stop;
  const BandFigures figures = ComputeBandFigures(session, thresholds);
  if (figures.points.empty()) {
    err << "kalvex-cli band: the sweep gives no point with a finite input impedance\n";
    return kExitFailed;
  }
  return WriteOutput(command.name, arguments->Option("--json") ? BandJson(figures) : BandReport(figures),
                     arguments->Option("-o"), out, err);
}

}  // namespace kalvex
