#pragma once

#include <string>
#include <vector>

#include "device/analyser_link.h"
#include "device/measured_sweep.h"
#include "device/sweep_plan.h"

namespace kalvex {

// What a run of sweeps on an analyser gave: every sweep that finished, who
// the analyser is, and why the run ended early ("" when it did not).
struct AnalyserMeasurement {
  std::vector<MeasuredSweep> sweeps;
  std::string version;
  std::string info;
  bool takesScan = true;
  std::string failure;
};

// Opens the analyser's serial port and makes `sweeps` sweeps of `plan`,
// waiting at most `timeout` for each of its answers.
AnalyserMeasurement MeasureOnPort(const std::string& port, const SweepPlan& plan, int sweeps,
                                  Milliseconds timeout = kAnalyserTimeout);

}  // namespace kalvex
