#pragma once

#include <atomic>
#include <vector>

#include "matching/optimise.h"
#include "matching/parts.h"
#include "model/session.h"

namespace kalvex {

// The series each kind is bought in.
struct SeriesChoice {
  ESeries capacitor = ESeries::E24;
  ESeries inductor = ESeries::E12;
  ESeries resistor = ESeries::E96;

  ESeries& Of(PartKind kind);
  ESeries Of(PartKind kind) const;
};

// The stages to put on standard values; every other stage with a part is
// free and re-tuned. Stages of lines and stubs have no standard values and are
// left to the free ones. Cables and transformers have none either and stay on
// their values, unless `retuneFeedParts` frees their length and ratio too.
struct SnapRequest {
  std::vector<int> stages;
  SeriesChoice series;
  bool retuneFeedParts = false;
};

struct SnappedPart {
  NetworkPart part;
  double ideal = 0;   // the value before
  double value = 0;   // the standard value chosen
  ESeries series = ESeries::E24;
};

struct SnapResult {
  double before = 0;   // worst VSWR over the band as the network stands
  double rounded = 0;  // with the chosen parts rounded to their nearest values
  double after = 0;    // the result, never above `rounded`
  std::vector<SnappedPart> parts;
  std::vector<OptimisedStage> stages;  // the snapped and the re-tuned stages
  int combinations = 0;  // tried, each with the free stages re-tuned
  bool cancelled = false;
};

// Tries every combination of each chosen part's standard values next below
// and above it, and for each lets the optimiser re-tune the free stages for
// the smallest worst VSWR over the band; from the best, steps one part at a
// time a value further along its series while that helps; keeps the best. The combination of
// the nearest values is among them, and the optimiser never leaves a start
// worse, so the result is never worse than plain rounding. The combinations
// run on every core; the result is the same whatever their number.
SnapResult SnapToStandardValues(const Session& session, const SnapRequest& request,
                                const std::atomic<bool>* cancel = nullptr);

// Whether the result put `stage` on standard values (else it was re-tuned).
bool IsSnapped(const SnapResult& result, int stage);

// Writes the result's stages into the session.
void ApplySnapped(Session& session, const SnapResult& result);

}  // namespace kalvex
