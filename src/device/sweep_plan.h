#pragma once

#include <cstdint>
#include <vector>

namespace kalvex {

// The sweep the user asks the analyser for: `points` frequencies spread evenly
// from `start` to `stop` hertz.
struct SweepPlan {
  double start = 1e6;
  double stop = 30e6;
  int points = 101;
};

// The analyser's own limits on what a sweep may ask for, and the most points
// one of its scans holds on most firmware.
inline constexpr double kAnalyserLowestHz = 10e3;
inline constexpr double kAnalyserHighestHz = 6e9;
inline constexpr int kMostPointsPerScan = 101;
// Kalvex keeps at most this many load-data points.
inline constexpr int kMostMeasuredPoints = 1000;

// What is wrong with a plan ("" when it can be swept): the range inside the
// analyser's, start below stop, 2..1000 points.
const char* PlanProblem(const SweepPlan& plan);

// One scan the analyser is asked for: whole hertz, as its shell takes them.
struct ScanSegment {
  int64_t start = 0;
  int64_t stop = 0;
  int points = 0;
};

// The plan's frequencies cut into consecutive scans of at most `most` points
// each, together exactly the plan's grid (rounded to whole hertz) with no
// frequency measured twice.
std::vector<ScanSegment> SegmentSweep(const SweepPlan& plan, int most = kMostPointsPerScan);

}  // namespace kalvex
