#include "device/sweep_plan.h"

#include <algorithm>
#include <cmath>

namespace kalvex {

const char* PlanProblem(const SweepPlan& plan) {
  if (!(plan.start >= kAnalyserLowestHz && plan.stop <= kAnalyserHighestHz)) {
    return "the range must lie within 10 kHz..6 GHz";
  }
  if (!(plan.start < plan.stop)) return "the start must lie below the stop";
  if (plan.points < 2 || plan.points > kMostMeasuredPoints) return "the points must be 2..1000";
  return "";
}

std::vector<ScanSegment> SegmentSweep(const SweepPlan& plan, int most) {
  const auto grid = [&plan](int k) {
    return static_cast<int64_t>(std::llround(plan.start + (plan.stop - plan.start) * k / (plan.points - 1)));
  };
  std::vector<ScanSegment> segments;
  // Equal shares rather than full scans and a short rest: a one-point scan
  // would have no span at all.
  const int count = (plan.points + most - 1) / most;
  int first = 0;
  for (int s = 0; s < count; ++s) {
    const int points = (plan.points - first) / (count - s);
    segments.push_back({grid(first), grid(first + points - 1), points});
    first += points;
  }
  return segments;
}

}  // namespace kalvex
