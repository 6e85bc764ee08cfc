#include "simulated_load.h"

#include <algorithm>
#include <memory>
#include <sstream>

#include "console_dialogs.h"
#include "device/measured_sweep.h"
#include "files/load_data_file.h"
#include "model/format.h"

namespace kalvex {

SimulatedLoad SimulatedLoad::Antenna(double resistance, double resonance, double q) {
  SimulatedLoad load;
  load.resistance_ = resistance;
  load.resonance_ = resonance;
  load.q_ = q;
  std::ostringstream text;
  text << "Load: antenna, series RLC of " << resistance << " ohm resonant at" << FormatSI(resonance) << "Hz, Q " << q;
  load.description_ = text.str();
  return load;
}

SimulatedLoad SimulatedLoad::FromFile(const std::string& name, std::string& messages) {
  SimulatedLoad load;
  load.isTable_ = true;
  load.description_ = "Load: the points of " + name;
  auto session = std::make_unique<Session>();
  std::ostringstream said;
  ConsoleDialogs dialogs(said);
  ParseLoadFile(*session, dialogs, name);
  messages = said.str();
  for (int k = 1; k <= session->SweepPoints; ++k) {
    load.table_.push_back({session->LoadFreq[k], {session->LoadR[k], session->LoadX[k]}});
  }
  std::stable_sort(load.table_.begin(), load.table_.end(),
                   [](const Point& a, const Point& b) { return a.frequency < b.frequency; });
  return load;
}

std::complex<double> SimulatedLoad::ImpedanceAt(double frequency) const {
  if (!isTable_) {
    const double detuning = frequency / resonance_ - resonance_ / frequency;
    return {resistance_, q_ * resistance_ * detuning};
  }
  if (table_.empty()) return kAnalyserReference;
  const auto above = std::lower_bound(table_.begin(), table_.end(), frequency,
                                      [](const Point& p, double f) { return p.frequency < f; });
  if (above == table_.begin()) return table_.front().impedance;
  if (above == table_.end()) return table_.back().impedance;
  const Point& below = *(above - 1);
  const double share = (frequency - below.frequency) / (above->frequency - below.frequency);
  return below.impedance + share * (above->impedance - below.impedance);
}

std::complex<double> S11Of(std::complex<double> impedance) {
  return (impedance - kAnalyserReference) / (impedance + kAnalyserReference);
}

}  // namespace kalvex
