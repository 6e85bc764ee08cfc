#include <sstream>

#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "session_options.h"
#include "console_dialogs.h"
#include "files/network_file.h"
#include "matching/match.h"
#include "matching/match_text.h"
#include "model/trim.h"

namespace kalvex {
namespace {

// "L,PI,T,STUB,QW,MULTI" (any case) as the kinds to compute; nothing for a word
// that names none.
std::optional<std::vector<MatchKind>> KindsOf(const std::string& list) {
  std::vector<MatchKind> kinds;
  std::istringstream words(list);
  for (std::string word; std::getline(words, word, ',');) {
    for (char& c : word) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (word == "L") kinds.push_back(MatchKind::L);
    else if (word == "PI") kinds.push_back(MatchKind::Pi);
    else if (word == "T") kinds.push_back(MatchKind::T);
    else if (word == "STUB") kinds.push_back(MatchKind::Stub);
    else if (word == "QW") kinds.push_back(MatchKind::QuarterWave);
    else if (word == "MULTI") kinds.insert(kinds.end(), {MatchKind::Binomial, MatchKind::Chebyshev});
    else return std::nullopt;
  }
  if (kinds.empty()) return std::nullopt;
  return kinds;
}

}  // namespace

int RunMatchCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(
      words, {"--kinds", "--q", "--sections", "--ripple", "--apply", "-o"}, {"--json"}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);

  MatchRequest request;
  if (const auto kinds = arguments->Option("--kinds")) {
    const auto parsed = KindsOf(*kinds);
    if (!parsed) return UsageError(command, "--kinds takes a list of L, PI, T, STUB, QW and MULTI", err);
    request.kinds = *parsed;
  }
  if (const auto q = arguments->Option("--q")) {
    const auto value = CliNumber(*q);
    if (!value || *value <= 0) return UsageError(command, "--q takes a loaded Q above 0", err);
    request.loadedQ = *value;
  }
  if (const auto sections = arguments->Option("--sections")) {
    const auto value = CliNumber(*sections);
    if (!value || (*value != 2 && *value != 3 && *value != 4)) {
      return UsageError(command, "--sections takes 2, 3 or 4", err);
    }
    request.sections = static_cast<int>(*value);
  }
  if (const auto ripple = arguments->Option("--ripple")) {
    const auto value = CliNumber(*ripple);
    if (!value || *value <= 0 || *value > 10) {
      return UsageError(command, "--ripple takes a passband ripple in dB above 0, up to 10", err);
    }
    request.rippleDb = *value;
  }
  const auto apply = arguments->Option("--apply");
  const auto output = arguments->Option("-o");
  std::optional<double> chosen;
  if (apply) {
    chosen = CliNumber(*apply);
    if (!chosen || *chosen < 1 || *chosen != std::floor(*chosen) || !output) {
      return UsageError(command, "--apply takes a solution's number from the list, with -o OUT", err);
    }
  }

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  const MatchResult result = FindMatches(session, request);
  for (const std::string& note : result.notes) err << "kalvex-cli match: " << note << "\n";
  if (!result.refusal.empty()) {
    err << "kalvex-cli match: " << result.refusal << "\n";
    return kExitFailed;
  }
  if (chosen) {
    if (*chosen > static_cast<double>(result.solutions.size())) {
      err << "kalvex-cli match: there is no solution " << *apply << ": the list has "
          << result.solutions.size() << "\n";
      return kExitFailed;
    }
    ApplyMatch(session, result.solutions[static_cast<std::size_t>(*chosen) - 1]);
    std::string failure;
    if (!WriteNetworkFile(session, dialogs, *output, &failure)) {
      err << "kalvex-cli match: " << (failure.empty() ? "no file name" : failure) << "\n";
      return kExitFailed;
    }
    return kExitOk;
  }
  const std::string text = arguments->Option("--json") ? MatchJson(session, result) : MatchTable(session, result);
  return WriteOutput(command.name, text, output, out, err);
}

}  // namespace kalvex
