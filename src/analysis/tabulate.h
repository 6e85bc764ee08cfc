#pragma once

#include <string>
#include <vector>

#include "model/session.h"

namespace kalvex {

// The column heading above the Tabulate page's list, in its fixed-pitch font.
inline constexpr const char* kTabulateHeading =
    " Freq.      R:      jX:      Rho:     Angle:   Return:   VSWR:";

// The list row of sweep point `index`: frequency, R, jX, Rho, angle, return
// loss and VSWR, each followed by at least one blank and padded to the
// heading's columns; reactance and angle carry their sign. A Rho of exactly 0
// is first replaced by 1e-9 in the sweep array, so the return loss is finite.
std::string TabulateRow(Session& session, int index);

// Recomputes the sweep as the Tabulate page does and returns its rows in
// index order.
std::vector<std::string> TabulateSweep(Session& session);

}  // namespace kalvex
