#include "platform/drawing_extent.h"

#include <algorithm>
#include <cmath>

namespace kalvex {
namespace {

// The painters' face advances at most this many ems a glyph (DejaVu Sans's
// capitals and digits stay below it) and takes this many ems of height.
constexpr double kGlyphWidthEms = 0.66;
constexpr double kLineHeightEms = 1.2;

std::size_t GlyphCount(const std::string& text) {
  // UTF-8: every byte but a continuation byte starts a glyph.
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

Box Around(Point a, Point b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

}  // namespace

Box TextBox(Point at, const std::string& text, double points) {
  const double em = points * kPageUnitsPerPoint;
  return {at.x, at.y, at.x + kGlyphWidthEms * em * static_cast<double>(GlyphCount(text)),
          at.y + kLineHeightEms * em};
}

Box DrawingExtent(const DisplayList& drawing) {
  using Kind = DrawCommand::Kind;
  Box extent;
  bool any = false;
  double points = 10;
  const auto add = [&extent, &any](const Box& box) {
    extent = any ? Box{std::min(extent.left, box.left), std::min(extent.top, box.top),
                       std::max(extent.right, box.right), std::max(extent.bottom, box.bottom)}
                 : box;
    any = true;
  };
  for (const DrawCommand& c : drawing.Commands()) {
    switch (c.kind) {
      case Kind::Line:
      case Kind::FillRect:
      case Kind::OutlineRect: add(Around(c.a, c.b)); break;
      case Kind::Ellipse:
      case Kind::FillEllipse:
        add({c.a.x - std::fabs(c.b.x), c.a.y - std::fabs(c.b.y), c.a.x + std::fabs(c.b.x), c.a.y + std::fabs(c.b.y)});
        break;
      case Kind::Text: add(TextBox(c.a, c.text, points)); break;
      case Kind::Font: points = c.value; break;
      case Kind::NewPage: return extent;
      default: break;
    }
  }
  return extent;
}

}  // namespace kalvex
