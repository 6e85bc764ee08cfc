#include <algorithm>

#include "cli.h"
#include "cli_options.h"
#include "optimiser_json.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "files/network_file.h"
#include "matching/snap.h"
#include "matching/snap_text.h"
#include "part_options.h"
#include "session_options.h"

namespace kalvex {
namespace {

constexpr Range kStages = {1, kLastStage, "stage numbers 1 to 5", false, true};

// The series of a --series list; nothing for a list the command does not take.
std::optional<SeriesChoice> SeriesOf(const std::string& text) {
  const auto entries = PartKindList(text);
  if (!entries) return std::nullopt;
  SeriesChoice choice;
  for (const auto& [kind, name] : *entries) {
    const auto series = SeriesNamed(name);
    if (!series || !HasStandardValues(kind)) return std::nullopt;
    choice.Of(kind) = *series;
  }
  return choice;
}

std::string SeriesProblem(const std::string& text) {
  return SeriesOf(text) ? "" : "a series E3 to E192 by kind, such as C=E24,L=E12,R=E96";
}

}  // namespace

int RunSnapCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err) {
  std::string file;
  std::vector<double> stages;
  std::optional<std::string> series;
  SweepOptions sweep;
  bool retuneFeed = false;
  bool json = false;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file)
      .NumberList("--stages", "1,3", stages, kStages)
      .Text("--series", "C=E24,L=E12,R=E96", series, SeriesProblem)
      .Flag("--retune-feed", retuneFeed)
      .Flag("--json", json)
      .Text("-o", "OUT", output);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (stages.empty()) return line.Refuse("--stages names the stages to put on standard values", err);
  if (const auto stop = RefuseOverwritingInputs(output, file, sweep.load, line, err)) return *stop;

  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  SnapRequest request;
  if (series) request.series = *SeriesOf(*series);
  request.retuneFeedParts = retuneFeed;
  const std::vector<NetworkPart> parts = PartsOf(session);
  for (const double number : stages) {
    const int stage = static_cast<int>(number);
    if (std::none_of(parts.begin(), parts.end(),
                     [stage](const NetworkPart& p) { return p.stage == stage && HasStandardValues(p.kind); })) {
      return line.Refuse("--stages " + std::to_string(stage) + ": stage " + std::to_string(stage) +
                             " holds no capacitor, inductor or resistor",
                         err);
    }
    request.stages.push_back(stage);
  }
  if (const auto stop = ApplySweepOptions(session, dialogs, sweep, line, err, true)) return *stop;
  const SnapResult result = SnapToStandardValues(session, request);
  if (output) {
    ApplySnapped(session, result);
    std::string failure;
    if (!WriteNetworkFile(session, dialogs, *output, &failure)) {
      err << line.Prefix() << (failure.empty() ? "no file name" : failure) << "\n";
      return kExitFailed;
    }
  }
  out << (json ? SnapJson(result) : SnapReport(result));
  return kExitOk;
}

}  // namespace kalvex
