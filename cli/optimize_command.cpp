#include <algorithm>

#include "cli.h"
#include "cli_options.h"
#include "optimiser_json.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "files/network_file.h"
#include "matching/optimise.h"
#include "matching/snap_text.h"
#include "model/number_text.h"
#include "session_options.h"

namespace kalvex {
namespace {

constexpr Range kStages = {1, kLastStage, "stage numbers 1 to 5", false, true};

std::string Report(const OptimiseResult& result) {
  std::string text = "Worst VSWR " + FormattedNumber("%.6g", result.before) + " before, " +
                     FormattedNumber("%.6g", result.after) + " after (" +
                     std::to_string(result.evaluations) + " evaluations; " +
                     (result.wideBounds ? "wide" : "practical") + " bounds, load " + LoadModelName(result.loadModel) +
                     ")\n";
  const auto loss = [](const std::optional<double>& db) { return db ? FormattedNumber("%.3f dB", *db) : "none"; };
  text += "Loss in the network " + loss(result.lossBefore) + " before, " + loss(result.lossAfter) + " after\n";
  for (const OptimisedStage& s : result.stages) text += StageText(s) + "\n";
  return text + OptimisedPartsNote(result);
}

// The stages named, each once, in the order first named.
std::vector<int> StagesOf(const std::vector<double>& numbers) {
  std::vector<int> stages;
  for (const double number : numbers) {
    const int stage = static_cast<int>(number);
    if (std::find(stages.begin(), stages.end(), stage) == stages.end()) stages.push_back(stage);
  }
  return stages;
}

}  // namespace

int RunOptimizeCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                       std::ostream& err) {
  std::string file;
  std::vector<double> free;
  bool freeImpedances = false;
  SweepOptions sweep;
  bool json = false;
  std::optional<std::string> bounds;
  std::optional<std::string> loadModel;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file)
      .NumberList("--free", "1,2[,...]", free, kStages)
      .Flag("--free-z0", freeImpedances)
      .Choice("--bounds", bounds, {"practical", "wide"})
      .Choice("--load-model", loadModel, {"fixed", "fitted"})
      .Flag("--json", json)
      .Text("-o", "OUT", output);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (free.empty()) return line.Refuse("--free names the stages to tune", err);
  if (const auto stop = RefuseOverwritingInputs(output, file, sweep.load, line, err)) return *stop;
  OptimiseRequest request;
  request.freeStages = StagesOf(free);
  request.freeImpedances = freeImpedances;
  request.overBand = sweep.Given();
  request.wideBounds = bounds == "wide";
  request.loadModel = LoadModelOf(loadModel);

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  for (const int stage : request.freeStages) {
    const int16_t type = session.ElementType[stage];
    const std::string named = "--free " + std::to_string(stage) + ": stage " + std::to_string(stage);
    if (type == Empty || type == InsertPlaceholder) return line.Refuse(named + " holds no part to tune", err);
    // A block's file is what it is: measured or written data, nothing to turn.
    if (type == TwoPort) return line.Refuse(named + " is a two-port block, which has no value to tune", err);
  }
  if (const auto stop = ApplySweepOptions(session, dialogs, sweep, line, err, true)) return *stop;
  const OptimiseResult result = Optimise(session, request);
  if (output) {
    ApplyOptimised(session, result);
    std::string failure;
    if (!WriteNetworkFile(session, dialogs, *output, &failure)) {
      err << line.Prefix() << (failure.empty() ? "no file name" : failure) << "\n";
      return kExitFailed;
    }
  }
  out << (json ? OptimiseJson(result) : Report(result));
  return kExitOk;
}

}  // namespace kalvex
