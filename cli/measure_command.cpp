#include <optional>

#include "analyser_measurement.h"
#include "cli.h"
#include "cli_options.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"

namespace kalvex {
namespace {

struct MeasureOptions {
  std::string port;
  SweepPlan plan;
  int sweeps = 1;
  std::optional<std::string> output;
};

constexpr Range kFrequencies = {kAnalyserLowestHz, kAnalyserHighestHz, "10 kHz to 6 GHz"};
constexpr Range kPoints = {2, kMostMeasuredPoints, "2 to 1000", false, true};
constexpr Range kSweeps = {1, 100, "1 to 100", false, true};

// The command's options, read in one place; nothing when the command may go
// on, else its exit code.
std::optional<int> ReadMeasureOptions(CommandLine& line, const std::vector<std::string>& words,
                                      MeasureOptions& options, std::ostream& out, std::ostream& err) {
  std::optional<std::string> port;
  std::optional<double> start, stop, points, sweeps;
  line.Text("--port", "DEV", port)
      .Number("--start", "HZ", start, kFrequencies)
      .Number("--stop", "HZ", stop, kFrequencies)
      .Number("--points", "N", points, kPoints)
      .Number("--sweeps", "K", sweeps, kSweeps)
      .Text("-o", "OUT", options.output);
  if (const auto code = line.Parse(words, out, err)) return code;
  if (!port) return line.Refuse("--port DEV is needed", err);
  options.port = *port;
  options.plan = {start.value_or(options.plan.start), stop.value_or(options.plan.stop),
                  static_cast<int>(points.value_or(options.plan.points))};
  options.sweeps = static_cast<int>(sweeps.value_or(1));
  if (const std::string problem = PlanProblem(options.plan); !problem.empty()) return line.Refuse(problem, err);
  return std::nullopt;
}

std::string Plural(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

int RunMeasureCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                      std::ostream& err) {
  MeasureOptions options;
  CommandLine line(command);
  if (const auto code = ReadMeasureOptions(line, words, options, out, err)) return *code;
  const AnalyserMeasurement measurement = MeasureOnPort(options.port, options.plan, options.sweeps);
  const std::string who = measurement.version.empty() ? "the analyser" : measurement.version;
  if (!measurement.failure.empty()) {
    err << line.Prefix() << options.port << ": " << measurement.failure << "\n";
  }
  if (measurement.sweeps.empty()) {
    if (measurement.failure.empty()) err << line.Prefix() << who << " gave no sweep\n";
    return kExitFailed;
  }
  const MeasuredSweep mean = AverageSweeps(measurement.sweeps);
  if (mean.leftOutLines > 0) {
    err << line.Prefix() << Plural(mean.leftOutLines, "malformed line") << " from " << who
        << " left out\n";
  }
  if (mean.points.empty()) {
    err << line.Prefix() << who << " gave no readable point\n";
    return kExitFailed;
  }
  const int finished = static_cast<int>(measurement.sweeps.size());
  if (finished < options.sweeps) {
    err << line.Prefix() << finished << " of " << options.sweeps << " sweeps finished; "
        << (finished == 1 ? "it is" : "their average is") << " written\n";
  }
  ConsoleDialogs dialogs(err);
  const std::string text = MeasuredTouchstone(
      mean, {"Kalvex measurement, " + dialogs.LocalDateTime() + ", on " + options.port,
             "analyser: " + who + (measurement.info.empty() ? "" : " (" + measurement.info + ")"),
             "S11 as corrected by the analyser's own calibration, " +
                 (finished == 1 ? std::string("one sweep") : "the average of " + Plural(finished, "sweep"))});
  const int written = WriteOutput(command.name, text, options.output, out, err);
  return written != kExitOk || finished < options.sweeps ? kExitFailed : kExitOk;
}

}  // namespace kalvex
