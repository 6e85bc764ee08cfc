#pragma once

#include <span>

#include "model/session.h"

namespace kalvex {

// The largest |Γ|, as the chart plots it, of the network over load-data
// points `points` (their frequencies and loads) and over `frequencies` with
// the network's own load: a search's worst case, calculated in one batch. A
// point whose |Γ| is not a number is passed over.
double WorstPlottedRho(const Session& network, std::span<const int> points,
                       std::span<const double> frequencies);

}  // namespace kalvex
