#include "cli.h"
#include "cli_options.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "matching/parts_list.h"
#include "session_options.h"

namespace kalvex {
int RunBomCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                  std::ostream& err) {
  std::string file;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file).Text("-o", "OUT.csv", output);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (const auto stop = RefuseOverwritingInputs(output, file, std::nullopt, line, err)) return *stop;
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  return WriteOutput(command.name, PartsListCsv(session), output, out, err);
}

}  // namespace kalvex
