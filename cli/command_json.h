#pragma once

#include <string>

#include "analysis/band.h"
#include "matching/match.h"
#include "matching/yield.h"
#include "model/session.h"

namespace kalvex {

// The commands' results as one JSON object each, one line. A figure that
// does not exist (an edge the curve never crosses) is null.

// frequency, load, system_impedance and every solution: kind, stages from the
// load with the type and the values applied (as the network file stores
// them), adjusted where the Design page's limits changed a value, loaded_q,
// response, dc, input and worst_vswr.
std::string MatchJson(const Session& session, const MatchResult& result);

// worst, best, bandwidths, bode_fano with series and parallel, bound_used.
std::string BandJson(const BandFigures& figures);

// yield (0..1), yield_percent, samples, nominal_worst_vswr,
// corners_worst_vswr, envelope (frequency, nominal, vswr_5, vswr_50, vswr_95,
// worst) and parts ranked (stage, part, tolerance, low_vswr, high_vswr).
std::string YieldJson(const YieldResult& result);

}  // namespace kalvex
