#include <algorithm>

#include "cli.h"
#include "cli_options.h"
#include "command_json.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "files/network_file.h"
#include "matching/match.h"
#include "matching/match_text.h"
#include "session_options.h"

namespace kalvex {
namespace {

// Beyond these the closed forms give parts no one can build, then no number.
constexpr Range kLoadedQs = {0, 1000, "a loaded Q above 0, up to 1000", true};
constexpr Range kSections = {2, kMostSections, "2 to 7 sections", false, true};
constexpr Range kRipples = {0.001, 10, "a passband ripple from 0.001 to 10 dB"};
constexpr Range kSolutionNumbers = {1, 1000, "a solution's number from the list", false, true};

std::vector<MatchKind> KindsOf(const std::vector<std::string>& words) {
  std::vector<MatchKind> kinds;
  const auto add = [&kinds](MatchKind kind) {
    if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) kinds.push_back(kind);
  };
  for (const std::string& word : words) {
    if (word == "L") add(MatchKind::L);
    if (word == "PI") add(MatchKind::Pi);
    if (word == "T") add(MatchKind::T);
    if (word == "STUB") add(MatchKind::Stub);
    if (word == "QW") add(MatchKind::QuarterWave);
    if (word == "MULTI") {
      add(MatchKind::Binomial);
      add(MatchKind::Chebyshev);
    }
  }
  return kinds;
}

}  // namespace

int RunMatchCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err) {
  std::string file;
  std::vector<std::string> kinds;
  std::optional<double> q, sections, ripple, apply;
  bool json = false;
  std::optional<std::string> loadModel;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file)
      .WordList("--kinds", kinds, {"L", "PI", "T", "STUB", "QW", "MULTI"})
      .Number("--q", "Q", q, kLoadedQs)
      .Number("--sections", "N", sections, kSections)
      .Number("--ripple", "DB", ripple, kRipples)
      .Choice("--load-model", loadModel, {"fixed", "fitted"})
      .Flag("--json", json)
      .Number("--apply", "N", apply, kSolutionNumbers)
      .Text("-o", "OUT", output);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (apply && !output) return line.Refuse("--apply writes a network file: -o OUT is needed", err);
  if (const auto stop = RefuseOverwritingInputs(output, file, std::nullopt, line, err)) return *stop;

  MatchRequest request;
  if (!kinds.empty()) request.kinds = KindsOf(kinds);
  request.loadedQ = q.value_or(request.loadedQ);
  request.sections = static_cast<int>(sections.value_or(request.sections));
  request.rippleDb = ripple.value_or(request.rippleDb);
  request.loadModel = LoadModelOf(loadModel);

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  const MatchResult result = FindMatches(session, request);
  for (const std::string& note : result.notes) err << line.Prefix() << note << "\n";
  for (const std::string& refusal : result.refusals) err << line.Prefix() << refusal << "\n";
  if (!result.refusals.empty() && result.solutions.empty()) return kExitFailed;
  if (apply) {
    const auto chosen = static_cast<std::size_t>(*apply);
    if (chosen > result.solutions.size()) {
      err << line.Prefix() << "there is no solution " << chosen << ": the list has "
          << result.solutions.size() << "\n";
      return kExitFailed;
    }
    ApplyMatch(session, result.solutions[chosen - 1]);
    std::string failure;
    if (!WriteNetworkFile(session, dialogs, *output, &failure)) {
      err << line.Prefix() << (failure.empty() ? "no file name" : failure) << "\n";
      return kExitFailed;
    }
    return kExitOk;
  }
  const std::string text = json ? MatchJson(session, result) : MatchTable(session, result);
  return WriteOutput(command.name, text, output, out, err);
}

}  // namespace kalvex
