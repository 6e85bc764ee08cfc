#include "cli.h"
#include "cli_options.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "files/spice_deck.h"
#include "session_options.h"

namespace kalvex {

int RunSpiceCommand(const Command& command, const std::vector<std::string>& words,
                    std::ostream& out, std::ostream& err) {
  std::string file;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file).Text("-o", "OUT", output);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (const auto stop = RefuseOverwritingInputs(output, file, std::nullopt, line, err)) return *stop;

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  session.FileName = file;
  const SpiceDeck deck = MakeSpiceDeck(session);
  if (!deck.problem.empty()) {
    err << line.Prefix() << deck.problem << "\n";
    return kExitFailed;
  }
  return WriteOutput(command.name, deck.text, output, out, err);
}

}  // namespace kalvex
