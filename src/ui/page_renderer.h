#pragma once

#include <string>

#include "platform/display_list.h"
#include "platform/pages.h"

namespace kalvex {

// Plays a page's drawing into a file of width × height pixels (points for a
// PDF), stretched to fill it: PNG, SVG or PDF, chosen by the file's suffix.
// Starts an offscreen GUI application first when none runs, so that a program
// without a screen can paint text. Returns an empty text on success, else what
// went wrong.
std::string RenderToFile(const DisplayList& drawing, PageSize page, int width, int height,
                         const std::string& path);

}  // namespace kalvex
