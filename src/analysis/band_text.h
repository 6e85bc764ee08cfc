#pragma once

#include <string>

#include "analysis/band.h"

namespace kalvex {

// The band figures as readable lines.
std::string BandReport(const BandFigures& figures);

}  // namespace kalvex
