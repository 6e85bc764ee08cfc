#include "session_options.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "analysis/sweep_settings.h"
#include "chart/chart_view.h"
#include "cli.h"
#include "console_dialogs.h"
#include "design/design_values.h"
#include "files/cable_catalogue.h"
#include "files/load_data_file.h"
#include "files/network_file.h"
#include "model/format.h"
#include "model/network_abcd.h"
#include "model/number_text.h"
#include "model/trim.h"

namespace kalvex {
namespace {

constexpr Range kGrids = {1, 6, "a grid type 1 to 6", false, true};
constexpr Range kZooms = {1, kMaxZoom, "a zoom factor from 1 to 8"};

std::string Hertz(double frequency) { return std::string(Trim(FormatSI(frequency), " ")) + "Hz"; }

// One line for an option the sweep setup's limits reset.
void SayReset(const CommandLine& line, const char* name, const std::string& used, std::ostream& err,
              const char* range) {
  err << line.Prefix() << name << " " << line.Given(name) << " is outside " << range << ": "
      << used << " used\n";
}

}  // namespace

void SettleNetwork(Session& session, Dialogs& dialogs) {
  PrepareDesignValues(session);
  // The page reads its boxes again: a value it does not reset keeps every
  // digit the file gave (the frequency made positive, as the page makes it).
  const double systemZ = session.SystemZ;
  const double frequency = std::fabs(session.Frequency);
  std::string systemZText = FormattedNumber("%.6g", systemZ);
  std::string frequencyText = FormattedNumber("%.6g", frequency);
  const std::string typedSystemZ = systemZText;
  const std::string typedFrequency = frequencyText;
  LimitDesignValues(session, dialogs, systemZText, frequencyText);
  if (systemZText == typedSystemZ) session.SystemZ = systemZ;
  if (frequencyText == typedFrequency) session.Frequency = frequency;
  if (session.LoadSource != 2) {
    AcceptSweepSettings(session, dialogs, session.SweepStart, session.SweepStop, session.SweepPoints);
  }
}

bool ReadNetworkInto(const std::string& path, Session& session, Dialogs& dialogs) {
  if (!ReadNetworkFile(session, dialogs, path)) return false;
  SettleNetwork(session, dialogs);
  return true;
}

bool ReadCommandNetwork(const std::string& path, Session& session, Dialogs& dialogs) {
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Cables = ReadShippedCatalogue();
  return ReadNetworkInto(path, session, dialogs);
}

void SweepOptions::AddTo(CommandLine& line) {
  line.Number("--start", "HZ", start)
      .Number("--stop", "HZ", stop)
      .Number("--points", "N", points)
      .Text("--load", "LOADFILE", load);
}

namespace {

std::optional<int> ApplySweepSettings(Session& session, Dialogs& dialogs, const SweepOptions& sweep,
                                      const CommandLine& line, std::ostream& err, bool ascending) {
  if (sweep.load && (sweep.start || sweep.stop || sweep.points)) {
    return line.Refuse("--load takes its frequencies from the file: no --start, --stop or --points",
                       err);
  }
  if (sweep.load) {
    if (!ApplyLoadDataFile(session, dialogs, *sweep.load)) return kExitFailed;
    return std::nullopt;
  }
  if (!sweep.Given()) return std::nullopt;
  // The sweep setup's own limits decide; a negative frequency is below the
  // smallest, not a positive one with its sign dropped.
  std::ostream quiet(nullptr);
  ConsoleDialogs unheard(quiet);
  AcceptSweepSettings(session, unheard, sweep.start ? std::max(*sweep.start, 0.0) : session.SweepStart,
                      sweep.stop ? std::max(*sweep.stop, 0.0) : session.SweepStop,
                      sweep.points ? std::clamp(*sweep.points, -1e6, 1e6) : session.SweepPoints);
  if (sweep.start && session.SweepStart != *sweep.start) {
    SayReset(line, "--start", Hertz(session.SweepStart), err, "5 kHz to 10 GHz");
  }
  if (sweep.stop && session.SweepStop != *sweep.stop) {
    SayReset(line, "--stop", Hertz(session.SweepStop), err, "5.01 kHz to 10 GHz");
  }
  if (sweep.points && session.SweepPoints != *sweep.points) {
    SayReset(line, "--points", std::to_string(session.SweepPoints), err, "3 to 2000 points");
  }
  if (ascending && session.SweepStart >= session.SweepStop) {
    return line.Refuse("--start " + Hertz(session.SweepStart) + " is not below --stop " +
                           Hertz(session.SweepStop),
                       err);
  }
  return std::nullopt;
}

}  // namespace

std::optional<int> ApplySweepOptions(Session& session, Dialogs& dialogs, const SweepOptions& sweep,
                                     const CommandLine& line, std::ostream& err, bool ascending) {
  if (const auto stop = ApplySweepSettings(session, dialogs, sweep, line, err, ascending)) return stop;
  return RefuseUncoveredBlocks(session, true, line, err);
}

void ChartOptions::AddTo(CommandLine& line) {
  line.Number("--grid", "1..6", grid, kGrids)
      .Number("--zoom", "N", zoom, kZooms)
      .Flag("--q-arcs", qArcs)
      .Flag("--vswr-circle", vswrCircle)
      .Flag("--sweep", sweep);
}

void ChartOptions::ApplyTo(Session& session) const {
  session.GridType = static_cast<int16_t>(grid.value_or(1));
  session.ChartZoom = static_cast<float>(zoom.value_or(1));
  session.QArcsOn = qArcs ? 1 : 0;
  session.VSWRCircleOn = vswrCircle ? 1 : 0;
  session.SweepShown = sweep ? 1 : 0;
}

std::optional<int> RefuseOverwritingInputs(const std::optional<std::string>& output,
                                           const std::optional<std::string>& file,
                                           const std::optional<std::string>& load,
                                           const CommandLine& line, std::ostream& err) {
  if (!output) return std::nullopt;
  for (const auto& input : {file, load}) {
    std::error_code error;
    if (input && std::filesystem::equivalent(*output, *input, error)) {
      return line.Refuse("-o names the input file " + *input + ": the output would overwrite it", err);
    }
  }
  return std::nullopt;
}

std::optional<int> RefuseUncoveredBlocks(const Session& session, bool sweep, const CommandLine& line,
                                         std::ostream& err) {
  double lowest = session.Frequency;
  double highest = session.Frequency;
  if (sweep && session.LoadSource == 2 && session.SweepPoints > 0) {
    const auto first = session.LoadFreq.begin() + 1;
    const auto [low, high] = std::minmax_element(first, first + session.SweepPoints);
    lowest = *low;
    highest = *high;
  } else if (sweep) {
    lowest = std::min(session.SweepStart, session.SweepStop);
    highest = std::max(session.SweepStart, session.SweepStop);
  }
  const std::string problem = BlockRangeProblem(session, lowest, highest);
  if (problem.empty()) return std::nullopt;
  err << line.Prefix() << problem << "\n";
  return kExitFailed;
}

LoadModel LoadModelOf(const std::optional<std::string>& word) {
  return word == "fitted" ? LoadModel::Fitted : LoadModel::Fixed;
}

}  // namespace kalvex
