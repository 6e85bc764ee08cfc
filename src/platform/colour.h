#pragma once

#include <cstdint>

namespace kalvex {

using Colour = uint32_t;  // 24-bit RGB, red in the low byte
constexpr Colour RGB(int red, int green, int blue) {
  return static_cast<Colour>(red) | (static_cast<Colour>(green) << 8) |
         (static_cast<Colour>(blue) << 16);
}
inline constexpr Colour kWhite = RGB(255, 255, 255);

}  // namespace kalvex
