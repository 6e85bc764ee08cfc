#pragma once

#include "platform/colour.h"

namespace kalvex {

// The pale blue behind every page's drawing.
inline constexpr Colour kPageBackground = RGB(232, 248, 255);

// The logical sizes of the pages, in page units.
struct PageSize {
  double width = 0;
  double height = 0;
};
inline constexpr double kDesignPageWidth = 12200;  // welcome and Design pages
inline constexpr double kDesignPageHeight = 9200;
inline constexpr double kAnalysisPageWidth = 12000;
inline constexpr double kAnalysisPageHeight = 9000;
inline constexpr PageSize kDesignPage{kDesignPageWidth, kDesignPageHeight};
inline constexpr PageSize kAnalysisPage{kAnalysisPageWidth, kAnalysisPageHeight};

}  // namespace kalvex
