#pragma once

#include <string>

#include "matching/optimise.h"
#include "matching/snap.h"

namespace kalvex {

// The results of the commands that optimise, as one JSON object each, one
// line, as command_json.h writes the others'.

// before, after, stages with stage, type and values, evaluations.
std::string OptimiseJson(const OptimiseResult& result);

// before, rounded, after, combinations, parts (stage, part, ideal, value,
// series) and stages (stage, type, snapped, values).
std::string SnapJson(const SnapResult& result);

}  // namespace kalvex
