#pragma once

#include <string>

#include "matching/yield.h"
#include "platform/canvas.h"

namespace kalvex {

// The figures' column ends above this height, however many parts are ranked:
// a window may put controls of its own below it.
inline constexpr double kYieldFiguresBottom = 6150;

// The yield over the band, drawn as the band plot is: the nominal network's
// VSWR, the band that 5 to 95 % of the built networks lie in, the worst of
// the corners at each frequency and the goal, with the yield, how the
// networks were built and the parts ranked by their share of the spread in
// the column beside it. `note` follows the title ("recomputing"); a result
// not yet computed shows that it is being computed.
void DrawYieldPlot(const YieldResult& result, const YieldRequest& request, const std::string& note, Canvas& canvas);

}  // namespace kalvex
