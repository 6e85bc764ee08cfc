#include "analysis/sweep.h"
#include "analysis/tabulate.h"
#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "session_options.h"
#include "files/sweep_data_file.h"
#include "files/text_file.h"
#include "files/touchstone.h"
#include "model/sweep_indexes.h"

namespace kalvex {
namespace {

std::string TableText(Session& session) {
  std::string text = std::string(kTabulateHeading) + kLineEnd;
  for (const std::string& row : TabulateSweep(session)) text += row + kLineEnd;
  return text;
}

}  // namespace

int RunSweepCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
             std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(
      words, {"--start", "--stop", "--points", "--load", "-o"}, {"--table", "--touchstone"}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  if (const auto stop = ApplySweepOptions(session, dialogs, *arguments, command, err, true)) {
    return *stop;
  }

  const auto output = arguments->Option("-o");
  std::string text;
  if (arguments->Option("--table")) {
    text = TableText(session);
  } else if (arguments->Option("--touchstone")) {
    RunSweepPoints(session, SweepUse::Table);
    text = TouchstoneText(session, dialogs.LocalDateTime());
  } else {
    RunSweepPoints(session, SweepUse::Table);
    text = SweepDataText(session, output.value_or("-"), dialogs.LocalDateTime());
  }

  if (const int leftOut = NonFiniteSweepPoints(session); leftOut > 0) {
    err << "kalvex-cli sweep: " << leftOut << " of the sweep's points give no finite input "
        << "impedance (the network's values are too large or too small) and are left out\n";
  }
  return WriteOutput(command.name, text, output, out, err);
}

}  // namespace kalvex
