#include "analysis/band.h"
#include "analysis/band_text.h"
#include "cli.h"
#include "cli_options.h"
#include "command_json.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "session_options.h"

namespace kalvex {
namespace {

constexpr Range kThresholds = {1, 100, "VSWR values above 1, up to 100", true};

}  // namespace

int RunBandCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err) {
  std::string file;
  SweepOptions sweep;
  std::vector<double> thresholds;
  bool json = false;
  std::optional<std::string> loadModel;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file)
      .NumberList("--thresholds", "1.5,2,3", thresholds, kThresholds)
      .Choice("--load-model", loadModel, {"fixed", "fitted"})
      .Flag("--json", json)
      .Text("-o", "OUT", output);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (const auto stop = RefuseOverwritingInputs(output, file, sweep.load, line, err)) return *stop;
  if (thresholds.empty()) thresholds = kDefaultThresholds;

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  if (const auto stop = ApplySweepOptions(session, dialogs, sweep, line, err, true)) return *stop;
  const BandFigures figures = ComputeBandFigures(session, thresholds, LoadModelOf(loadModel));
  if (figures.points.empty()) {
    err << line.Prefix() << "the sweep gives no point with a finite input impedance\n";
    return kExitFailed;
  }
  return WriteOutput(command.name, json ? BandJson(figures) : BandReport(figures), output, out, err);
}

}  // namespace kalvex
