#pragma once

#include <QRectF>
#include <QSizeF>
#include <algorithm>

namespace kalvex {

// The part of a device (a window, an image, a sheet of paper) that a page is
// drawn in: the proportions of `shape` at the largest size that fits, with
// one scale across and down, centred. A page is designed to fill a screen's
// available area, so its shape is that area's: at any window size it then
// looks as it does maximised, a round chart staying round. The rest of the
// device is margin.
inline QRectF PageFrame(QSizeF device, QSizeF shape) {
  if (shape.isEmpty()) return {QPointF(0, 0), device};
  const double scale = std::min(device.width() / shape.width(), device.height() / shape.height());
  const QSizeF size = shape * scale;
  return {QPointF((device.width() - size.width()) / 2, (device.height() - size.height()) / 2), size};
}

}  // namespace kalvex
