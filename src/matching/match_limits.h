#pragma once

#include <string>
#include <vector>

#include "matching/match.h"

namespace kalvex {

// What the Design page's limits would change when `solution` is applied, one
// line a changed value naming the part and what it would get: "stage 2,
// shunt capacitor: 0.05 pF would become 0.1 pF". A Q of 0 taking the default
// Q is intended and not listed; empty when every value goes in as it is.
std::vector<std::string> MatchLimitChanges(const Session& session, const MatchSolution& solution);

}  // namespace kalvex
