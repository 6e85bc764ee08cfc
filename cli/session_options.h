#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "command_line.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// The network of FILE in a fresh session with its own load in use
// (LoadSource 1), brought into what the Design page accepts before it
// analyses, with its messages. False, the reader having said why, when it
// cannot be read.
bool ReadCommandNetwork(const std::string& path, Session& session, Dialogs& dialogs);

// The same into `session` as it is: the settings it holds that the file does
// not carry stay.
bool ReadNetworkInto(const std::string& path, Session& session, Dialogs& dialogs);

// What a network file gave, brought into range as the Design page does before
// the Analysis page opens: missing design values and Qs get their defaults,
// the system impedance and the frequency their limits, the sweep settings
// those of the sweep setup; each reset with the page's message.
void SettleNetwork(Session& session, Dialogs& dialogs);

// The sweep's options: --start, --stop, --points, or --load LOADFILE.
struct SweepOptions {
  std::optional<double> start;
  std::optional<double> stop;
  std::optional<double> points;
  std::optional<std::string> load;

  void AddTo(CommandLine& line);
  bool Given() const { return start || stop || points || load; }
};

// --load runs the sweep over a load-data file; otherwise --start, --stop and
// --points replace the file's settings, each kept within what the sweep setup
// takes; a value reset says so on `err`, naming the option, the value given
// and the value used. With `ascending`, a start above the stop is refused; a
// two-port block whose file does not cover the sweep is refused.
// Returns an exit code when the command must stop.
std::optional<int> ApplySweepOptions(Session& session, Dialogs& dialogs, const SweepOptions& sweep,
                                     const CommandLine& line, std::ostream& err, bool ascending);

// The view of the chart: --grid 1..6, --zoom 1..8 and the switches --q-arcs,
// --vswr-circle and --sweep.
struct ChartOptions {
  std::optional<double> grid;
  std::optional<double> zoom;
  bool qArcs = false;
  bool vswrCircle = false;
  bool sweep = false;

  void AddTo(CommandLine& line);
  void ApplyTo(Session& session) const;
};

// Refuses -o naming one of the input files: the output would overwrite it.
std::optional<int> RefuseOverwritingInputs(const std::optional<std::string>& output,
                                           const std::optional<std::string>& file,
                                           const std::optional<std::string>& load,
                                           const CommandLine& line, std::ostream& err);

// Refuses the network (the message on `err`, the failure's exit code) when a
// two-port block's file does not cover the working frequency, or with
// `sweep` the sweep's frequencies (the load data's, over a load-data file).
std::optional<int> RefuseUncoveredBlocks(const Session& session, bool sweep, const CommandLine& line,
                                         std::ostream& err);

// The --load-model word (fixed when not given) as the load model.
LoadModel LoadModelOf(const std::optional<std::string>& word);

}  // namespace kalvex
