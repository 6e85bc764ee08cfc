#pragma once

#include <QImage>
#include <QRect>

namespace kalvex::testing {

// The box around the pixels of `image` that `wanted` picks.
template <typename Wanted>
QRect BoxOf(const QImage& image, Wanted wanted, int fromY = 0) {
  QRect box;
  for (int y = fromY; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (wanted(image.pixel(x, y))) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

}  // namespace kalvex::testing
