#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/canvas.h"

namespace kalvex {

// One recorded drawing call.
struct DrawCommand {
  enum class Kind {
    Clear, Line, Ellipse, FillRect, OutlineRect, FillEllipse, Text, LineWidth, TextColour, Font,
    NewPage, Background
  };
  Kind kind = Kind::Clear;
  Point a{};          // line start, rectangle corner, ellipse centre, text position
  Point b{};          // line end, opposite corner, ellipse half-axes
  double start = 0;   // ellipse arc angles
  double end = 0;
  double value = 0;   // line width, font size
  bool bold = false;
  Colour colour = 0;  // drawing colour, text colour, clear colour
  std::string text{};
};

// A Canvas that records every call, so a page keeps its drawing and repaints
// it on demand, and tests inspect what was drawn.
class DisplayList : public Canvas {
 public:
  void Clear(Colour background) override;
  void FillRect(Point corner, Point opposite, Colour colour) override;
  void OutlineRect(Point corner, Point opposite, Colour colour) override;
  void FillEllipse(Point centre, double radiusX, double radiusY, Colour colour) override;
  void Text(Point at, const std::string& text) override;
  void SetLineWidth(double width) override;
  void SetTextColour(Colour colour) override;
  void SetFont(double points, bool bold) override;
  void NewPage() override;

  void EndOfBackground() override;

  // Plays the recorded calls onto another canvas, in order; with
  // `firstPageOnly` it stops where a second page would begin.
  void Replay(Canvas& target, bool firstPageOnly = false) const;

  // The background's commands end here (none recorded: nothing is background).
  std::size_t BackgroundEnd() const { return backgroundEnd_; }
  // A fingerprint of the background's commands: equal fingerprints, equal backgrounds.
  uint64_t BackgroundKey() const { return backgroundKey_; }
  // Plays the commands from `first` up to `end`, after the state (line width,
  // text colour, font) the commands before `first` leave.
  void ReplayRange(Canvas& target, std::size_t first, std::size_t end) const;

  const std::vector<DrawCommand>& Commands() const { return commands_; }
  void Reset() { commands_.clear(); }

 protected:
  void DrawLine(Point from, Point to, Colour colour) override;
  void DrawEllipse(Point centre, double radiusX, double radiusY, double start, double end,
                   Colour colour) override;

 private:
  std::vector<DrawCommand> commands_;
  std::size_t backgroundEnd_ = 0;
  uint64_t backgroundKey_ = 0;
};

}  // namespace kalvex
