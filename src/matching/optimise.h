#pragma once

#include <functional>
#include <vector>

#include "design/network_editor.h"
#include "model/session.h"

namespace kalvex {

// What to tune: the stages whose parts are free (the others stay locked),
// whether the line and stub impedances are free too, and whether the goal is
// the worst point of the sweep (its settings, or the load-data points) or the
// working frequency alone.
struct OptimiseRequest {
  std::vector<int> freeStages;
  bool freeImpedances = false;
  bool overBand = true;
};

struct OptimisedStage {
  int stage = 0;
  int16_t type = Empty;
  StageValues values{};
};

struct OptimiseResult {
  double before = 0;  // worst VSWR at the start
  double after = 0;   // and at the result, never above `before`
  std::vector<OptimisedStage> stages;  // each free stage with its new values
  int evaluations = 0;
  bool cancelled = false;
};

// Told the evaluations so far and the best worst VSWR yet; returns false to
// stop (the best found so far is then the result).
using OptimiseProgress = std::function<bool(int evaluations, double worstVSWR)>;

// Tunes the free stages' values for the smallest worst-case reflection, with
// NLopt: deterministic starting points (the present values and a Halton set
// over the bounds), each refined by a derivative-free local search on the
// worst case. Values that span decades are searched on a log scale, within
// what the Design page accepts for their type. The same input gives the same
// result; where nothing better is found the result is the start.
OptimiseResult Optimise(const Session& session, const OptimiseRequest& request,
                        const OptimiseProgress& progress = nullptr);

// Writes the result's values into the session's stages.
void ApplyOptimised(Session& session, const OptimiseResult& result);

}  // namespace kalvex
