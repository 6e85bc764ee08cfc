#pragma once

#include <string>

#include "matching/snap.h"

namespace kalvex {

// "Stage 3: series capacitor, 39 pF, Q: 1 k": a stage written by the
// optimiser or a snap, as their reports list it.
std::string StageText(const OptimisedStage& stage);

// A snap's result in lines: the worst VSWR before, rounded and snapped with
// the combinations tried, then each stage it wrote with its values and
// whether it is on standard values or was re-tuned.
std::string SnapReport(const SnapResult& result);

}  // namespace kalvex
