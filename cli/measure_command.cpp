#include <cmath>

#include "analyser_measurement.h"
#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "model/format.h"

namespace kalvex {
namespace {

struct MeasureOptions {
  std::string port;
  SweepPlan plan;
  int sweeps = 1;
  std::optional<std::string> output;
};

constexpr int kMostSweeps = 100;

// The command's options, read in one place; "" or the usage problem.
std::string ReadMeasureOptions(const std::vector<std::string>& words, MeasureOptions& options) {
  std::string problem;
  const auto arguments =
      SplitArguments(words, {"--port", "--start", "--stop", "--points", "--sweeps", "-o"}, {}, problem);
  if (!arguments) return problem;
  if (!arguments->positional.empty()) return "unexpected " + arguments->positional.front();
  const auto port = arguments->Option("--port");
  if (!port || port->empty()) return "--port DEV is needed";
  options.port = *port;
  options.output = arguments->Option("-o");
  // Frequencies are read as the sweep setup's boxes read them: "14.2M" works.
  if (const auto start = arguments->Option("--start")) options.plan.start = ParseValue(*start);
  if (const auto stop = arguments->Option("--stop")) options.plan.stop = ParseValue(*stop);
  for (const auto& [name, count, least, most] :
       {std::tuple{"--points", &options.plan.points, 2, kMostMeasuredPoints},
        std::tuple{"--sweeps", &options.sweeps, 1, kMostSweeps}}) {
    const auto word = arguments->Option(name);
    if (!word) continue;
    const auto value = CliNumber(*word);
    if (!value || *value != std::floor(*value) || *value < least || *value > most) {
      return std::string(name) + " takes a whole number " + std::to_string(least) + ".." + std::to_string(most);
    }
    *count = static_cast<int>(*value);
  }
  if (const std::string planProblem = PlanProblem(options.plan); !planProblem.empty()) return planProblem;
  return "";
}

std::string Plural(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

int RunMeasureCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                      std::ostream& err) {
  MeasureOptions options;
  if (const std::string problem = ReadMeasureOptions(words, options); !problem.empty()) {
    return UsageError(command, problem, err);
  }
  const AnalyserMeasurement measurement = MeasureOnPort(options.port, options.plan, options.sweeps);
  const std::string who = measurement.version.empty() ? "the analyser" : measurement.version;
  if (!measurement.failure.empty()) {
    err << "kalvex-cli measure: " << options.port << ": " << measurement.failure << "\n";
  }
  if (measurement.sweeps.empty()) {
    if (measurement.failure.empty()) err << "kalvex-cli measure: " << who << " gave no sweep\n";
    return kExitFailed;
  }
  const MeasuredSweep mean = AverageSweeps(measurement.sweeps);
  if (mean.leftOutLines > 0) {
    err << "kalvex-cli measure: " << Plural(mean.leftOutLines, "malformed line") << " from " << who
        << " left out\n";
  }
  if (mean.points.empty()) {
    err << "kalvex-cli measure: " << who << " gave no readable point\n";
    return kExitFailed;
  }
  const int finished = static_cast<int>(measurement.sweeps.size());
  if (finished < options.sweeps) {
    err << "kalvex-cli measure: " << finished << " of " << options.sweeps << " sweeps finished; "
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
