#include <sstream>

#include "cli.h"
#include "cli_options.h"
#include "command_json.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "matching/yield.h"
#include "model/number_text.h"
#include "part_options.h"
#include "session_options.h"

namespace kalvex {
namespace {

constexpr Range kSamples = {1, 100'000, "whole numbers 1 to 100000", false, true};
constexpr Range kSeeds = {0, 9e15, "whole numbers from 0", false, true};
constexpr Range kGoals = {1, 1e6, "a VSWR of 1 or more"};

std::string Report(const YieldResult& result, const YieldRequest& request) {
  std::string text = "Yield " + FormattedNumber("%.1f", 100 * result.yield) + " % of " +
                     std::to_string(result.samples) + " networks at VSWR " + FormattedNumber("%.6g", request.goal) +
                     " or better over " + std::to_string(result.envelope.size()) + " points\n";
  text += "Worst VSWR " + FormattedNumber("%.6g", result.nominalWorst) + " nominal, " +
          FormattedNumber("%.6g", result.cornersWorst) + " at the worst corner\n";
  for (const PartSpread& s : result.parts) {
    text += "Stage " + std::to_string(s.part.stage) + " " + PartLetter(s.part.kind) + " +-" +
            FormattedNumber("%.6g", s.tolerance) + " %: worst VSWR " + FormattedNumber("%.6g", s.lowVSWR) +
            " low, " + FormattedNumber("%.6g", s.highVSWR) + " high\n";
  }
  return text;
}

// A --tolerance list: per kind (C=5,L=5,R=1,LINE=2) and per stage (2=10:
// every part of stage 2), in any order, a stage's entry over its kind's.
struct ToleranceList {
  Tolerances kinds;
  std::vector<std::pair<int, double>> stages;
};

// Nothing for a list the command does not take.
std::optional<ToleranceList> TolerancesOf(const std::string& text) {
  ToleranceList list;
  std::istringstream entries(text);
  for (std::string entry; std::getline(entries, entry, ',');) {
    const std::size_t equals = entry.find('=');
    if (equals == std::string::npos) return std::nullopt;
    const std::string key = entry.substr(0, equals);
    const auto percent = CliNumber(entry.substr(equals + 1));
    if (!percent || *percent < 0 || *percent >= 100) return std::nullopt;
    if (key.size() == 1 && key[0] >= '1' && key[0] < '1' + kLastStage) {
      list.stages.emplace_back(key[0] - '0', *percent);
    } else if (const auto kind = PartKindNamed(key)) {
      list.kinds.Of(*kind) = *percent;
    } else {
      return std::nullopt;
    }
  }
  if (text.empty()) return std::nullopt;
  return list;
}

std::string ToleranceProblem(const std::string& text) {
  return TolerancesOf(text) ? ""
                            : "per-cent values 0 to under 100 by kind or by stage 1 to 5, such as "
                              "C=5,L=5,R=1,LINE=2,3=10";
}

}  // namespace

int RunYieldCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err) {
  std::string file;
  std::optional<std::string> tolerances;
  std::optional<std::string> distribution;
  std::optional<double> samples;
  std::optional<double> seed;
  std::optional<double> goal;
  SweepOptions sweep;
  bool json = false;
  CommandLine line(command);
  line.File(file)
      .Text("--tolerance", "C=5,L=5,R=1,LINE=2,3=10", tolerances, ToleranceProblem)
      .Choice("--distribution", distribution, {"uniform", "normal"})
      .Number("--samples", "N", samples, kSamples)
      .Number("--seed", "S", seed, kSeeds)
      .Number("--vswr", "VSWR", goal, kGoals)
      .Flag("--json", json);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  YieldRequest request;
  const ToleranceList toleranceList = tolerances ? *TolerancesOf(*tolerances) : ToleranceList{};
  request.tolerances = toleranceList.kinds;
  request.spread = distribution == "normal" ? Spread::Normal : Spread::Uniform;
  request.samples = static_cast<int>(samples.value_or(request.samples));
  request.seed = static_cast<std::uint64_t>(seed.value_or(static_cast<double>(request.seed)));
  request.goal = goal.value_or(request.goal);

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  const std::vector<NetworkPart> parts = PartsOf(session);
  for (const auto& [stage, percent] : toleranceList.stages) {
    bool any = false;
    for (const NetworkPart& part : parts) {
      if (part.stage != stage) continue;
      SetTolerance(request, part, percent);
      any = true;
    }
    if (!any) return line.Refuse("--tolerance: stage " + std::to_string(stage) + " holds no part", err);
  }
  if (const auto stop = ApplySweepOptions(session, dialogs, sweep, line, err, true)) return *stop;
  const YieldResult result = ComputeYield(session, request);
  return WriteOutput(command.name, json ? YieldJson(result) : Report(result, request), std::nullopt, out, err);
}

}  // namespace kalvex
