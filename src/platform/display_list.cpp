#include "platform/display_list.h"

#include <cstring>

namespace kalvex {

using Kind = DrawCommand::Kind;

namespace {

void Play(Canvas& target, const DrawCommand& c) {
  switch (c.kind) {
    case Kind::Clear: target.Clear(c.colour); break;
    case Kind::Line: target.Line(c.a, c.b, c.colour); break;
    case Kind::Ellipse: target.ArcOfEllipse(c.a, c.b.x, c.b.y, c.start, c.end, c.colour); break;
    case Kind::FillRect: target.FillRect(c.a, c.b, c.colour); break;
    case Kind::OutlineRect: target.OutlineRect(c.a, c.b, c.colour); break;
    case Kind::FillEllipse: target.FillEllipse(c.a, c.b.x, c.b.y, c.colour); break;
    case Kind::Text: target.Text(c.a, c.text); break;
    case Kind::LineWidth: target.SetLineWidth(c.value); break;
    case Kind::TextColour: target.SetTextColour(c.colour); break;
    case Kind::Font: target.SetFont(c.value, c.bold); break;
    case Kind::NewPage: target.NewPage(); break;
    case Kind::Background: target.EndOfBackground(); break;
  }
}

}  // namespace

void DisplayList::Clear(Colour background) {
  // Whatever was drawn before is covered: drop it rather than keep it.
  commands_.clear();
  backgroundEnd_ = 0;
  backgroundKey_ = 0;
  commands_.push_back({.kind = Kind::Clear, .colour = background});
}

void DisplayList::DrawLine(Point from, Point to, Colour colour) {
  commands_.push_back({.kind = Kind::Line, .a = from, .b = to, .colour = colour});
}

void DisplayList::DrawEllipse(Point centre, double radiusX, double radiusY, double start,
                              double end, Colour colour) {
  commands_.push_back({.kind = Kind::Ellipse,
                       .a = centre,
                       .b = {radiusX, radiusY},
                       .start = start,
                       .end = end,
                       .colour = colour});
}

void DisplayList::FillRect(Point corner, Point opposite, Colour colour) {
  commands_.push_back({.kind = Kind::FillRect, .a = corner, .b = opposite, .colour = colour});
}

void DisplayList::OutlineRect(Point corner, Point opposite, Colour colour) {
  commands_.push_back({.kind = Kind::OutlineRect, .a = corner, .b = opposite, .colour = colour});
}

void DisplayList::FillEllipse(Point centre, double radiusX, double radiusY, Colour colour) {
  commands_.push_back(
      {.kind = Kind::FillEllipse, .a = centre, .b = {radiusX, radiusY}, .colour = colour});
}

void DisplayList::Text(Point at, const std::string& text) {
  commands_.push_back({.kind = Kind::Text, .a = at, .text = text});
}

void DisplayList::SetLineWidth(double width) {
  commands_.push_back({.kind = Kind::LineWidth, .value = width});
}

void DisplayList::SetTextColour(Colour colour) {
  commands_.push_back({.kind = Kind::TextColour, .colour = colour});
}

void DisplayList::SetFont(double points, bool bold) {
  commands_.push_back({.kind = Kind::Font, .value = points, .bold = bold});
}

void DisplayList::NewPage() { commands_.push_back({.kind = Kind::NewPage}); }

void DisplayList::EndOfBackground() {
  // A multiply-rotate mix of every field of every command, a word at a time.
  uint64_t key = 14695981039346656037ull;
  auto mix = [&key](uint64_t word) {
    key = (key ^ word) * 0x9E3779B97F4A7C15ull;
    key ^= key >> 29;
  };
  auto bits = [](double value) {
    uint64_t word;
    std::memcpy(&word, &value, sizeof word);
    return word;
  };
  for (const DrawCommand& c : commands_) {
    mix(static_cast<uint64_t>(c.kind) | static_cast<uint64_t>(c.colour) << 8 | static_cast<uint64_t>(c.bold) << 40);
    for (const double value : {c.a.x, c.a.y, c.b.x, c.b.y, c.start, c.end, c.value}) mix(bits(value));
    for (const char ch : c.text) mix(static_cast<unsigned char>(ch));
  }
  commands_.push_back({.kind = Kind::Background});
  backgroundEnd_ = commands_.size();
  backgroundKey_ = key;
}

void DisplayList::ReplayRange(Canvas& target, std::size_t first, std::size_t end) const {
  for (std::size_t k = 0; k < first && k < commands_.size(); ++k) {
    const DrawCommand& c = commands_[k];
    switch (c.kind) {
      case Kind::LineWidth: target.SetLineWidth(c.value); break;
      case Kind::TextColour: target.SetTextColour(c.colour); break;
      case Kind::Font: target.SetFont(c.value, c.bold); break;
      default: break;
    }
  }
  for (std::size_t k = first; k < end && k < commands_.size(); ++k) Play(target, commands_[k]);
}

void DisplayList::Replay(Canvas& target, bool firstPageOnly) const {
  for (const DrawCommand& c : commands_) {
    if (firstPageOnly && c.kind == Kind::NewPage) return;
    Play(target, c);
  }
}

}  // namespace kalvex
