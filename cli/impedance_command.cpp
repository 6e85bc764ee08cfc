#include <cmath>
#include <cstdio>

#include "cli.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "model/calculate.h"
#include "session_options.h"

namespace kalvex {
namespace {

// The frequencies the Design page takes.
constexpr Range kDesignFrequencies = {10e3, 10e9, "10 kHz to 10 GHz"};

}  // namespace

int RunImpedanceCommand(const Command& command, const std::vector<std::string>& words,
                        std::ostream& out, std::ostream& err) {
  std::string file;
  std::optional<double> frequency;
  CommandLine line(command);
  line.File(file).Number("--freq", "HZ", frequency, kDesignFrequencies);
  if (const auto stop = line.Parse(words, out, err)) return *stop;

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  if (frequency) session.Frequency = *frequency;
  if (const auto stop = RefuseUncoveredBlocks(session, false, line, err)) return *stop;
  CalculateNetwork(session, 0);
  if (!std::isfinite(session.InputR) || !std::isfinite(session.InputX)) {
    err << line.Prefix() << "the network gives no finite input impedance at " << session.Frequency
        << " Hz (its values are too large or too small)\n";
    return kExitFailed;
  }

  // A negative zero reads as a sign that is not there.
  char text[64];
  std::snprintf(text, sizeof text, "%.12g %.12g", session.InputR + 0.0, session.InputX + 0.0);
  out << text << "\n";
  return kExitOk;
}

}  // namespace kalvex
