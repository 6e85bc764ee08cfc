#pragma once

#include <string>

#include "platform/display_list.h"

namespace kalvex {

// A rectangle in page units.
struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  bool Empty() const { return !(right > left) || !(bottom > top); }
  bool Overlaps(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
  bool Inside(const Box& outer) const {
    return left >= outer.left && right <= outer.right && top >= outer.top && bottom <= outer.bottom;
  }
};

// The box a text takes with its top-left corner at `at` in a font of `points`:
// a generous width for the painters' sans-serif face (its widest digits and
// capitals), so that whatever lies outside it is clear of the glyphs.
Box TextBox(Point at, const std::string& text, double points);

// Everything the first page of `drawing` marks: lines, arcs as their whole
// ellipse, rectangles and texts (by TextBox, in the font in force); a clear
// marks nothing. Text before any font is taken at 10 points.
Box DrawingExtent(const DisplayList& drawing);

}  // namespace kalvex
