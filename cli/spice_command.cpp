#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "session_options.h"
#include "console_dialogs.h"
#include "files/spice_deck.h"

namespace kalvex {

int RunSpiceCommand(const Command& command, const std::vector<std::string>& words,
                    std::ostream& out, std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(words, {"-o"}, {}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  session.FileName = arguments->positional.front();
  const SpiceDeck deck = MakeSpiceDeck(session);
  if (!deck.problem.empty()) {
    err << "kalvex-cli spice: " << deck.problem << "\n";
    return kExitFailed;
  }
  return WriteOutput(command.name, deck.text, arguments->Option("-o"), out, err);
}

}  // namespace kalvex
