#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "matching/parts_list.h"
#include "session_options.h"

namespace kalvex {

int RunBomCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                  std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(words, {"-o"}, {}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  return WriteOutput(command.name, PartsListCsv(session), arguments->Option("-o"), out, err);
}

}  // namespace kalvex
