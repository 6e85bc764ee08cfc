#pragma once

#include <QSize>
#include <QSizeF>
#include <QString>

#include "platform/display_list.h"

namespace kalvex {

// Plays a page's drawing into a file of `size` pixels (points for a PDF),
// stretched to fill it: PNG, SVG or PDF, chosen by the file's suffix. Returns
// an empty text on success, else what went wrong.
QString RenderToFile(const DisplayList& drawing, QSizeF pageSize, QSize size,
                     const QString& path);

}  // namespace kalvex
