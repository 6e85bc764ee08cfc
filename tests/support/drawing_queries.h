#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/display_list.h"
#include "platform/drawing_extent.h"

namespace kalvex::testing {

// Questions tests ask of a display list.
inline std::vector<DrawCommand> OfKind(const DisplayList& list, DrawCommand::Kind kind) {
  std::vector<DrawCommand> found;
  for (const DrawCommand& c : list.Commands()) {
    if (c.kind == kind) found.push_back(c);
  }
  return found;
}

// The box of each text, in the font in force where it is drawn.
inline std::vector<Box> TextBoxes(const DisplayList& list) {
  std::vector<Box> boxes;
  double points = 10;
  for (const DrawCommand& c : list.Commands()) {
    if (c.kind == DrawCommand::Kind::Font) points = c.value;
    if (c.kind == DrawCommand::Kind::Text) boxes.push_back(TextBox(c.a, c.text, points));
  }
  return boxes;
}

inline std::vector<DrawCommand> LinesIn(const DisplayList& list, Colour colour) {
  std::vector<DrawCommand> found = OfKind(list, DrawCommand::Kind::Line);
  std::erase_if(found, [colour](const DrawCommand& c) { return c.colour != colour; });
  return found;
}

// The largest x that a horizontal line at height y reaches.
inline double RailEnd(const DisplayList& list, double y) {
  double end = -1e9;
  for (const DrawCommand& c : OfKind(list, DrawCommand::Kind::Line)) {
    if (std::abs(c.a.y - y) < 1e-6 && std::abs(c.b.y - y) < 1e-6) {
      end = std::max({end, c.a.x, c.b.x});
    }
  }
  return end;
}

// The text whose top-left corner is at (x, y), or "" when none is.
inline std::string TextAt(const DisplayList& list, double x, double y) {
  for (const DrawCommand& c : list.Commands()) {
    if (c.kind == DrawCommand::Kind::Text && c.a.x == x && c.a.y == y) return c.text;
  }
  return "";
}

// The first text command that writes `text`, or nullptr.
inline const DrawCommand* FindText(const DisplayList& list, const std::string& text) {
  for (const DrawCommand& c : list.Commands()) {
    if (c.kind == DrawCommand::Kind::Text && c.text == text) return &c;
  }
  return nullptr;
}

inline std::vector<std::string> Texts(const DisplayList& list) {
  std::vector<std::string> texts;
  for (const DrawCommand& c : OfKind(list, DrawCommand::Kind::Text)) texts.push_back(c.text);
  return texts;
}

}  // namespace kalvex::testing
