#pragma once

#include "analysis/band.h"
#include "platform/canvas.h"
#include "platform/pages.h"

namespace kalvex {

// What the band plot shows against frequency.
enum class BandQuantity { VSWR, ReturnLoss, Gamma };

// The band plot's page, in page units: drawn in its own proportions on
// screen, in images and on paper.
inline constexpr PageSize kBandPage{12000, 9000};

// The curve of `quantity` over the sweep, with its axes and engineering
// labels, each VSWR threshold's line with its band edges marked and labelled,
// the working frequency, the worst point, and the Bode–Fano bound's level as a
// dashed line.
void DrawBandPlot(const BandFigures& figures, BandQuantity quantity, Canvas& canvas);

// The plot's title: "VSWR", "Return loss (dB)" or "|Gamma|" against frequency.
const char* BandQuantityName(BandQuantity quantity);

}  // namespace kalvex
