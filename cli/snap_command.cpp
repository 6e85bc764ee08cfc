#include <cmath>
#include <cstdio>
#include <sstream>

#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "design/schematic.h"
#include "matching/parts_list.h"
#include "matching/snap.h"
#include "model/number_text.h"
#include "part_options.h"
#include "session_options.h"

namespace kalvex {
namespace {

bool Snapped(const SnapResult& result, int stage) {
  return std::any_of(result.parts.begin(), result.parts.end(),
                     [stage](const SnappedPart& p) { return p.part.stage == stage; });
}

std::string Json(const SnapResult& result) {
  std::string json = "{\"before\": " + JsonNumber(result.before) + ", \"rounded\": " + JsonNumber(result.rounded) +
                     ", \"after\": " + JsonNumber(result.after) +
                     ", \"combinations\": " + std::to_string(result.combinations) + ", \"parts\": [";
  for (std::size_t k = 0; k < result.parts.size(); ++k) {
    const SnappedPart& p = result.parts[k];
    json += std::string(k == 0 ? "" : ", ") + "{\"stage\": " + std::to_string(p.part.stage) + ", \"part\": \"" +
            PartLetter(p.part.kind) + "\", \"ideal\": " + JsonNumber(p.ideal) + ", \"value\": " +
            JsonNumber(p.value) + ", \"series\": \"" + SeriesName(p.series) + "\"}";
  }
  json += "], \"stages\": [";
  for (std::size_t k = 0; k < result.stages.size(); ++k) {
    const OptimisedStage& s = result.stages[k];
    json += std::string(k == 0 ? "" : ", ") + "{\"stage\": " + std::to_string(s.stage) + ", \"type\": " +
            std::to_string(s.type) + ", \"snapped\": " + (Snapped(result, s.stage) ? "true" : "false") +
            ", \"values\": [" + JsonNumber(s.values[1]) + ", " + JsonNumber(s.values[2]) + ", " +
            JsonNumber(s.values[3]) + ", " + JsonNumber(s.values[4]) + "]}";
  }
  return json + "]}\n";
}

std::string Report(const SnapResult& result) {
  char line[160];
  std::snprintf(line, sizeof line, "Worst VSWR %.6g before, %.6g rounded, %.6g snapped (%d combinations)\n",
                result.before, result.rounded, result.after, result.combinations);
  std::string text = line;
  for (const OptimisedStage& s : result.stages) {
    std::array<double, kSlotCount> values{};
    std::copy(s.values.begin(), s.values.end(), values.begin());
    text += "Stage " + std::to_string(s.stage) + ": " + PartName(s.type);
    for (const std::string& part : PartValueLines(s.type, values)) text += ", " + part;
    text += Snapped(result, s.stage) ? " (standard)\n" : " (re-tuned)\n";
  }
  return text;
}

std::optional<SnapRequest> SnapRequestOf(const CliArguments& arguments, const Session& session,
                                         std::string& problem) {
  SnapRequest request;
  std::istringstream list(arguments.Option("--stages").value_or(""));
  for (std::string word; std::getline(list, word, ',');) {
    const auto stage = CliNumber(word);
    if (!stage || *stage < 1 || *stage > kLastStage || *stage != std::floor(*stage)) {
      problem = "--stages takes stage numbers 1..5, such as 1,3";
      return std::nullopt;
    }
    const int s = static_cast<int>(*stage);
    const auto parts = PartsOf(session);
    const bool buyable = std::any_of(parts.begin(), parts.end(), [s](const NetworkPart& p) {
      return p.stage == s && p.kind != PartKind::Line;
    });
    if (!buyable) {
      problem = "stage " + word + " holds no capacitor, inductor or resistor";
      return std::nullopt;
    }
    request.stages.push_back(s);
  }
  if (request.stages.empty()) {
    problem = "--stages names the stages to put on standard values";
    return std::nullopt;
  }
  if (const auto choice = arguments.Option("--series")) {
    const auto entries = PartKindList(*choice);
    for (const auto& [kind, name] : entries.value_or(std::vector<std::pair<PartKind, std::string>>{})) {
      const auto series = SeriesNamed(name);
      if (!series || kind == PartKind::Line) {
        problem = "--series takes a series by kind, such as C=E24,L=E12,R=E96";
        return std::nullopt;
      }
      request.series.Of(kind) = *series;
    }
    if (!entries) {
      problem = "--series takes a series by kind, such as C=E24,L=E12,R=E96";
      return std::nullopt;
    }
  }
  return request;
}

}  // namespace

int RunSnapCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(
      words, {"--stages", "--series", "--start", "--stop", "--points", "--load", "-o"}, {"--json"}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  const auto request = SnapRequestOf(*arguments, session, problem);
  if (!request) return UsageError(command, problem, err);
  if (const auto stop = ApplySweepOptions(session, dialogs, *arguments, command, err, true)) return *stop;
  const SnapResult result = SnapToStandardValues(session, *request);
  if (const auto output = arguments->Option("-o")) {
    ApplySnapped(session, result);
    if (!WriteCommandNetwork(session, dialogs, *output, command, err)) return kExitFailed;
  }
  return WriteOutput(command.name, arguments->Option("--json") ? Json(result) : Report(result), std::nullopt,
                     out, err);
}

}  // namespace kalvex
