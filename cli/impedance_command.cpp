#include <cmath>
#include <cstdio>

#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "session_options.h"
#include "console_dialogs.h"
#include "model/calculate.h"

namespace kalvex {

int RunImpedanceCommand(const Command& command, const std::vector<std::string>& words,
                 std::ostream& out, std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(words, {"--freq"}, {}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() != 1) return UsageError(command, "one FILE is needed", err);

  std::optional<double> frequency;
  if (const auto text = arguments->Option("--freq")) {
    frequency = CliNumber(*text);
    if (!frequency || *frequency <= 0) {
      return UsageError(command, "--freq takes a frequency in hertz above 0", err);
    }
  }

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(*arguments, session, dialogs)) return kExitFailed;
  if (frequency) session.Frequency = *frequency;
  CalculateNetwork(session, 0);
  if (!std::isfinite(session.InputR) || !std::isfinite(session.InputX)) {
    err << "kalvex-cli impedance: the network gives no finite input impedance at "
        << session.Frequency << " Hz (its values are too large or too small)\n";
    return kExitFailed;
  }

  char line[64];
  std::snprintf(line, sizeof line, "%.12g %.12g", session.InputR, session.InputX);
  out << line << "\n";
  return kExitOk;
}

}  // namespace kalvex
