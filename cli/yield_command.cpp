#include <cmath>
#include <cstdio>

#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "matching/yield.h"
#include "model/number_text.h"
#include "part_options.h"
#include "session_options.h"

namespace kalvex {
namespace {

std::string Json(const YieldResult& result) {
  std::string json = "{\"yield\": " + JsonNumber(result.yield) + ", \"yield_percent\": " +
                     JsonNumber(100 * result.yield) + ", \"samples\": " + std::to_string(result.samples) +
                     ", \"nominal_worst_vswr\": " + JsonNumber(result.nominalWorst) +
                     ", \"corners_worst_vswr\": " + JsonNumber(result.cornersWorst) + ", \"envelope\": [";
  for (std::size_t k = 0; k < result.envelope.size(); ++k) {
    const YieldEnvelopePoint& p = result.envelope[k];
    json += std::string(k == 0 ? "" : ", ") + "{\"frequency\": " + JsonNumber(p.frequency) +
            ", \"nominal\": " + JsonNumber(p.nominal) + ", \"vswr_5\": " + JsonNumber(p.low) +
            ", \"vswr_50\": " + JsonNumber(p.median) + ", \"vswr_95\": " + JsonNumber(p.high) +
            ", \"worst\": " + JsonNumber(p.worst) + "}";
  }
  json += "], \"parts\": [";
  for (std::size_t k = 0; k < result.parts.size(); ++k) {
    const PartSpread& s = result.parts[k];
    json += std::string(k == 0 ? "" : ", ") + "{\"stage\": " + std::to_string(s.part.stage) + ", \"part\": \"" +
            PartLetter(s.part.kind) + "\", \"tolerance\": " + JsonNumber(s.tolerance) +
            ", \"low_vswr\": " + JsonNumber(s.lowVSWR) + ", \"high_vswr\": " + JsonNumber(s.highVSWR) + "}";
  }
  return json + "]}\n";
}

std::string Report(const YieldResult& result, const YieldRequest& request) {
  char line[160];
  std::snprintf(line, sizeof line, "Yield %.1f %% of %d networks at VSWR %.6g or better over %zu points\n",
                100 * result.yield, result.samples, request.goal, result.envelope.size());
  std::string text = line;
  std::snprintf(line, sizeof line, "Worst VSWR %.6g nominal, %.6g at the worst corner\n", result.nominalWorst,
                result.cornersWorst);
  text += line;
  for (const PartSpread& s : result.parts) {
    std::snprintf(line, sizeof line, "Stage %d %s +-%.6g %%: worst VSWR %.6g low, %.6g high\n", s.part.stage,
                  PartLetter(s.part.kind), s.tolerance, s.lowVSWR, s.highVSWR);
    text += line;
  }
  return text;
}

// The request from the options; a reason when one is wrong.
std::optional<YieldRequest> YieldRequestOf(const CliArguments& arguments, std::string& problem) {
  auto fail = [&](const char* reason) {
    problem = reason;
    return std::optional<YieldRequest>();
  };
  YieldRequest request;
  if (const auto list = arguments.Option("--tolerance")) {
    const auto entries = PartKindList(*list);
    if (!entries) return fail("--tolerance takes per-cent values by kind, such as C=5,L=5,R=1,LINE=2");
    for (const auto& [kind, word] : *entries) {
      const auto percent = CliNumber(word);
      if (!percent || *percent < 0 || *percent >= 100) return fail("a tolerance is 0 to under 100 %");
      request.tolerances.Of(kind) = *percent;
    }
  }
  if (const auto spread = arguments.Option("--distribution")) {
    if (*spread != "uniform" && *spread != "normal") return fail("--distribution is uniform or normal");
    request.spread = *spread == "normal" ? Spread::Normal : Spread::Uniform;
  }
  if (const auto word = arguments.Option("--samples")) {
    const auto samples = CliNumber(*word);
    if (!samples || *samples < 1 || *samples > 100'000 || *samples != std::floor(*samples)) {
      return fail("--samples takes a whole number 1..100000");
    }
    request.samples = static_cast<int>(*samples);
  }
  if (const auto word = arguments.Option("--seed")) {
    const auto seed = CliNumber(*word);
    if (!seed || *seed < 0 || *seed > 9e15 || *seed != std::floor(*seed)) {
      return fail("--seed takes a whole number 0 or more");
    }
    request.seed = static_cast<std::uint64_t>(*seed);
  }
  if (const auto word = arguments.Option("--vswr")) {
    const auto goal = CliNumber(*word);
    if (!goal || *goal < 1) return fail("--vswr takes the goal, a VSWR of 1 or more");
    request.goal = *goal;
  }
  return request;
}

}  // namespace

int RunYieldCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(words,
                                        {"--tolerance", "--distribution", "--samples", "--seed", "--vswr",
                                         "--start", "--stop", "--points", "--load"},
                                        {"--json"}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);
  const auto request = YieldRequestOf(*arguments, problem);
  if (!request) return UsageError(command, problem, err);
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  if (const auto stop = ApplySweepOptions(session, dialogs, *arguments, command, err, true)) return *stop;
  const YieldResult result = ComputeYield(session, *request);
  return WriteOutput(command.name, arguments->Option("--json") ? Json(result) : Report(result, *request),
                     std::nullopt, out, err);
}

}  // namespace kalvex
