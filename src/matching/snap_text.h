#pragma once

#include <string>

#include "matching/snap.h"

namespace kalvex {

// A snap's result in lines: the worst VSWR before, rounded and snapped with
// the combinations tried, then each stage it wrote with its values and
// whether it is on standard values or was re-tuned.
std::string SnapReport(const SnapResult& result);

}  // namespace kalvex
