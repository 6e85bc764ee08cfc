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

// The per-kind tolerances of a --tolerance list; nothing for a list the
// command does not take.
std::optional<Tolerances> TolerancesOf(const std::string& text) {
  const auto entries = PartKindList(text);
  if (!entries) return std::nullopt;
  Tolerances tolerances;
  for (const auto& [kind, word] : *entries) {
    const auto percent = CliNumber(word);
    if (!percent || *percent < 0 || *percent >= 100) return std::nullopt;
    tolerances.Of(kind) = *percent;
  }
  return tolerances;
}

std::string ToleranceProblem(const std::string& text) {
  return TolerancesOf(text) ? "" : "per-cent values 0 to under 100 by kind, such as C=5,L=5,R=1,LINE=2";
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
      .Text("--tolerance", "C=5,L=5,R=1,LINE=2", tolerances, ToleranceProblem)
      .Choice("--distribution", distribution, {"uniform", "normal"})
      .Number("--samples", "N", samples, kSamples)
      .Number("--seed", "S", seed, kSeeds)
      .Number("--vswr", "VSWR", goal, kGoals)
      .Flag("--json", json);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  YieldRequest request;
  if (tolerances) request.tolerances = *TolerancesOf(*tolerances);
  request.spread = distribution == "normal" ? Spread::Normal : Spread::Uniform;
  request.samples = static_cast<int>(samples.value_or(request.samples));
  request.seed = static_cast<std::uint64_t>(seed.value_or(static_cast<double>(request.seed)));
  request.goal = goal.value_or(request.goal);

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  if (const auto stop = ApplySweepOptions(session, dialogs, sweep, line, err, true)) return *stop;
  const YieldResult result = ComputeYield(session, request);
  return WriteOutput(command.name, json ? YieldJson(result) : Report(result, request), std::nullopt, out, err);
}

}  // namespace kalvex
