#pragma once

#include <string>

#include "platform/display_list.h"
#include "platform/pages.h"

namespace kalvex {

// Plays a page's drawing into a file of width × height pixels (points for a
// PDF): PNG, SVG or PDF, chosen by the file's suffix. The page is drawn in
// the proportions of `shape` (a screen's, for a page designed to fill one;
// by default the page's own, as on paper) as large as fits, centred, the
// margins in the page background (see PageFrame). A
// PDF takes every page of the drawing, an image the first. A printed page
// gives the page units of its line width unit in `unitsPerWidth`, as a
// PainterCanvas takes it. Starts an offscreen GUI application first when none
// runs, so that a program without a screen can paint text. Returns an empty
// text on success, else what went wrong.
std::string RenderToFile(const DisplayList& drawing, PageSize page, int width, int height,
                         const std::string& path, double unitsPerWidth = 0,
                         PageSize shape = {});

}  // namespace kalvex
