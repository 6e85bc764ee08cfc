#include <cstdio>
#include <sstream>

#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "design/schematic.h"
#include "files/network_file.h"
#include "matching/optimise.h"
#include "model/number_text.h"
#include "session_options.h"

namespace kalvex {
namespace {

std::string Json(const OptimiseResult& result) {
  std::string json = "{\"before\": " + JsonNumber(result.before) + ", \"after\": " + JsonNumber(result.after) +
                     ", \"stages\": [";
  for (std::size_t k = 0; k < result.stages.size(); ++k) {
    const OptimisedStage& s = result.stages[k];
    json += std::string(k == 0 ? "" : ", ") + "{\"stage\": " + std::to_string(s.stage) + ", \"type\": " +
            std::to_string(s.type) + ", \"values\": [" + JsonNumber(s.values[1]) + ", " +
            JsonNumber(s.values[2]) + ", " + JsonNumber(s.values[3]) + ", " + JsonNumber(s.values[4]) + "]}";
  }
  return json + "], \"evaluations\": " + std::to_string(result.evaluations) + "}\n";
}

std::string Report(const OptimiseResult& result) {
  char line[128];
  std::snprintf(line, sizeof line, "Worst VSWR %.6g before, %.6g after (%d evaluations)\n", result.before,
                result.after, result.evaluations);
  std::string text = line;
  for (const OptimisedStage& s : result.stages) {
    std::array<double, kSlotCount> values{};
    std::copy(s.values.begin(), s.values.end(), values.begin());
    text += "Stage " + std::to_string(s.stage) + ": " + PartName(s.type);
    for (const std::string& part : PartValueLines(s.type, values)) text += ", " + part;
    text += "\n";
  }
  return text;
}

}  // namespace

int RunOptimizeCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                       std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(words, {"--free", "--start", "--stop", "--points", "--load", "-o"},
                                        {"--free-z0", "--json"}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);
  OptimiseRequest request;
  std::istringstream list(arguments->Option("--free").value_or(""));
  for (std::string word; std::getline(list, word, ',');) {
    const auto stage = CliNumber(word);
    if (!stage || *stage < 1 || *stage > kLastStage || *stage != std::floor(*stage)) {
      return UsageError(command, "--free takes stage numbers 1..5, such as 1,2", err);
    }
    request.freeStages.push_back(static_cast<int>(*stage));
  }
  if (request.freeStages.empty()) return UsageError(command, "--free names the stages to tune", err);
  request.freeImpedances = arguments->Option("--free-z0").has_value();
  request.overBand = arguments->Option("--load") || arguments->Option("--start") ||
                     arguments->Option("--stop") || arguments->Option("--points");

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  if (const auto stop = ApplySweepOptions(session, dialogs, *arguments, command, err, false)) return *stop;
  const OptimiseResult result = Optimise(session, request);
  if (const auto output = arguments->Option("-o")) {
    ApplyOptimised(session, result);
    std::string failure;
    if (!WriteNetworkFile(session, dialogs, *output, &failure)) {
      err << "kalvex-cli optimize: " << (failure.empty() ? "no file name" : failure) << "\n";
      return kExitFailed;
    }
  }
  return WriteOutput(command.name, arguments->Option("--json") ? Json(result) : Report(result), std::nullopt,
                     out, err);
}

}  // namespace kalvex
