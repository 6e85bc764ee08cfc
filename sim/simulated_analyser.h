#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "simulated_load.h"

namespace kalvex {

// How the simulated analyser misbehaves, counted in the measurement lines it
// sends (those of scan, frequencies and data): every Nth dropped or garbled,
// and after N lines silence for ever, or the device gone. 0 switches a fault off.
struct AnalyserFaults {
  int dropEvery = 0;
  int garbleEvery = 0;
  int stallAfter = 0;
  int vanishAfter = 0;
};

// The text shell of a pocket vector network analyser measuring `load`: it
// echoes each command line, answers in lines ending in CR LF and prompts
// "ch> ". Commands: version, info, scan START STOP POINTS [OUTMASK] (at most
// `mostPerScan` points; with `takesScan` false it is unknown, as on old
// firmware), sweep [START STOP POINTS], frequencies, data 0|1; an unknown one
// is answered "NAME?".
class SimulatedAnalyser {
 public:
  SimulatedAnalyser(SimulatedLoad load, AnalyserFaults faults, bool takesScan, int mostPerScan);

  // Takes the bytes the host wrote; returns what the analyser sends back.
  std::string Feed(std::string_view bytes);

  // Called before each sweep's lines go out, to take as long as a sweep takes.
  void OnMeasuring(std::function<void()> measuring) { measuring_ = std::move(measuring); }

  bool Stalled() const { return faults_.stallAfter > 0 && sent_ >= faults_.stallAfter; }
  bool Vanished() const { return faults_.vanishAfter > 0 && sent_ >= faults_.vanishAfter; }

 private:
  std::string Run(const std::string& line);
  std::string Scan(int64_t start, int64_t stop, int points, int mask);
  std::string Frequencies();
  std::string Data(int which);
  // One measurement line, through the faults.
  void Send(std::string& out, std::string line);
  double FrequencyAt(int64_t start, int64_t stop, int points, int k) const;

  SimulatedLoad load_;
  AnalyserFaults faults_;
  bool takesScan_;
  int mostPerScan_;
  std::function<void()> measuring_;
  std::string typed_;
  bool lastWasCr_ = false;
  int sent_ = 0;  // measurement lines sent, dropped ones included
  int64_t sweepStart_ = 1'000'000, sweepStop_ = 30'000'000;
  int sweepPoints_ = 101;
};

}  // namespace kalvex
