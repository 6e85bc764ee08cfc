#include "analysis/sweep.h"
#include "analysis/tabulate.h"
#include "cli.h"
#include "cli_options.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "files/network_two_port_text.h"
#include "files/sweep_data_file.h"
#include "files/text_file.h"
#include "files/touchstone.h"
#include "model/sweep_indexes.h"
#include "session_options.h"

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
  std::string file;
  SweepOptions sweep;
  bool table = false;
  bool touchstone = false;
  bool twoPort = false;
  std::optional<std::string> loadModel;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file).Flag("--table", table).Flag("--touchstone", touchstone)
      .Flag("--touchstone2", twoPort)
      .Choice("--load-model", loadModel, {"fixed", "fitted"})
      .Text("-o", "OUT", output);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (const auto stop = RefuseOverwritingInputs(output, file, sweep.load, line, err)) return *stop;

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  session.SweepLoadModel = LoadModelOf(loadModel);
  if (const auto stop = ApplySweepOptions(session, dialogs, sweep, line, err, false)) return *stop;
  if (table + touchstone + twoPort > 1) {
    return line.Refuse("--table, --touchstone and --touchstone2 each choose the output: give one", err);
  }

  std::string text;
  if (table) {
    text = TableText(session);
  } else if (twoPort) {
    RunSweepPoints(session, SweepUse::Table);
    text = NetworkTwoPortText(session, dialogs.LocalDateTime());
  } else if (touchstone) {
    RunSweepPoints(session, SweepUse::Table);
    text = TouchstoneText(session, dialogs.LocalDateTime());
  } else {
    RunSweepPoints(session, SweepUse::Table);
    text = SweepDataText(session, output.value_or("-"), dialogs.LocalDateTime());
  }

  if (const int leftOut = NonFiniteSweepPoints(session); leftOut > 0) {
    err << line.Prefix() << leftOut << " of the sweep's points give no finite input "
        << "impedance (the network's values are too large or too small) and are left out\n";
  }
  return WriteOutput(command.name, text, output, out, err);
}

}  // namespace kalvex
