#pragma once

#include <string>

#include "matching/match.h"

namespace kalvex {

// "worst VSWR over 12.6 MHz to 15.4 MHz (10 % either side of the working
// frequency), load fixed": the band and load model the figures hold for.
std::string MatchBandText(const MatchResult& result);

// The parts of a solution from the load outwards, in the program's number
// texts: "shunt capacitor 68 pF; series inductor 1.2 uH".
std::string MatchPartsText(const MatchSolution& solution);

// The whole result as a readable table, one row a solution.
std::string MatchTable(const Session& session, const MatchResult& result);

}  // namespace kalvex
