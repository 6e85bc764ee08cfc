#pragma once

#include <string>

#include "analysis/band.h"

namespace kalvex {

// The band figures as one JSON object (edges and limits that do not exist
// are null), and as readable lines.
std::string BandJson(const BandFigures& figures);
std::string BandReport(const BandFigures& figures);

}  // namespace kalvex
