#pragma once

#include "model/session.h"

namespace kalvex {

// The chart's part of the Analysis page's opening: the radius from the zoom
// of the last visit, the vertical centre back at 5000 (the horizontal one is
// kept), circle values and the colour-key mode given when missing.
void LoadAnalysisView(Session& session);

// "Kalvex 2.12 - Analysis  " followed by the file name.
std::string AnalysisCaption(const Session& session);

}  // namespace kalvex
