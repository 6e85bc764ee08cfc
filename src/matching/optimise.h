#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "design/network_editor.h"
#include "model/load_model.h"
#include "model/session.h"

namespace kalvex {

// What to tune: the stages whose parts are free (the others stay locked),
// whether the line and stub impedances are free too, whether the goal is the
// worst point of the sweep (its settings, or the load-data points) or the
// working frequency alone, whether values range as widely as the Design page
// takes them or only where parts can be built (see SearchVariables), and how
// the network's own load is taken over the band.
struct OptimiseRequest {
  std::vector<int> freeStages;
  bool freeImpedances = false;
  bool overBand = true;
  bool wideBounds = false;
  LoadModel loadModel = LoadModel::Fixed;
};

struct OptimisedStage {
  int stage = 0;
  int16_t type = Empty;
  StageValues values{};
  bool onBound = false;     // a value ended on an end of its search range
  bool negligible = false;  // its part hardly changes the network: it could be left out
};

struct OptimiseResult {
  double before = 0;  // worst VSWR at the start
  double after = 0;   // and at the result, never above `before`
  std::vector<OptimisedStage> stages;  // each free stage with its new values
  int evaluations = 0;                 // networks calculated over every point
  bool cancelled = false;
  LoadModel loadModel = LoadModel::Fixed;
  bool wideBounds = false;
  // The power lost in the network at the working frequency (NetworkLossDb)
  // before and after: what a match through a lossy cable costs.
  std::optional<double> lossBefore;
  std::optional<double> lossAfter;
};

// Told the evaluations so far and the best worst VSWR yet; returns false to
// stop (the best found so far is then the result).
using OptimiseProgress = std::function<bool(int evaluations, double worstVSWR)>;

// How hard the global stage looks. The defaults reach the best network of
// every hard case in bench/ within 0.05 dB; a long reference run raises them.
struct OptimiseEffort {
  int samplesPerValue = 2000;     // Halton points per free value, on 24 points of the band
  std::size_t localStarts = 480;  // the best distinct ones scouted by a short local search
  std::size_t refined = 24;       // the best distinct basins taken to their minimum on 48 points
  std::size_t polished = 4;       // the best distinct minima (over every point) polished
};

// Tunes the free stages' values for the smallest worst-case reflection over
// the goal's points, with NLopt. The global stage samples a Halton set over
// the bounds on a few points of the band; its best distinct points and the
// present values are scouted by a short local minimax (SLSQP on t >= |Γ|² at
// each point, an extra variable that makes the worst case smooth), the best
// basins taken to their minimum on more points, and the best few of those,
// ranked over every point, polished over every point: the points that rise
// above the worst so far are added until none does. The same input gives the
// same result; where nothing better is found the result is the start; a stop
// asked by `progress` gives the best found so far.
OptimiseResult Optimise(const Session& session, const OptimiseRequest& request,
                        const OptimiseProgress& progress = nullptr, const OptimiseEffort& effort = {});

// The free parts to look at again, one line each: "Stage 3 (series capacitor)
// ended on a bound of its range." and "... has a negligible reactance: it
// could be left out."; "" when there are none.
std::string OptimisedPartsNote(const OptimiseResult& result);

// Writes the result's values into the session's stages.
void ApplyOptimised(Session& session, const OptimiseResult& result);

}  // namespace kalvex
