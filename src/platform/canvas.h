#pragma once

#include <string>

#include "platform/colour.h"

namespace kalvex {

struct Point {
  double x = 0;
  double y = 0;
};

// A drawing surface in page units: x to the right, y downward, origin at the
// top-left corner. Angles are radians counted counterclockwise as seen on the
// page, 0 pointing right and π/2 pointing up. The same drawing routines paint a
// window, an image, a PDF or a printer page, and tests read back what they drew.
class Canvas {
 public:
  virtual ~Canvas() = default;

  virtual void Clear(Colour background) = 0;

  // A line; the pen is left at `to`, where LineTo continues from.
  void Line(Point from, Point to, Colour colour) {
    DrawLine(from, to, colour);
    pen_ = to;
  }
  void LineTo(Point to, Colour colour) { Line(pen_, to, colour); }
  void MoveTo(Point at) { pen_ = at; }

  void Circle(Point centre, double radius, Colour colour) {
    DrawEllipse(centre, radius, radius, 0, kFullTurn, colour);
  }
  void Arc(Point centre, double radius, double start, double end, Colour colour) {
    DrawEllipse(centre, radius, radius, start, end, colour);
  }
  // An ellipse of aspect k (height ÷ width): for k < 1 `radius` is the
  // horizontal half-axis, otherwise the vertical one.
  void Ellipse(Point centre, double radius, double aspect, Colour colour) {
    EllipticArc(centre, radius, aspect, 0, kFullTurn, colour);
  }
  void EllipticArc(Point centre, double radius, double aspect, double start, double end,
                   Colour colour) {
    const bool wide = aspect < 1;
    ArcOfEllipse(centre, wide ? radius : radius / aspect, wide ? radius * aspect : radius, start,
                 end, colour);
  }
  // An arc of the ellipse with these half-axes from `start` counterclockwise
  // to `end` (an end below the start goes round through 0).
  void ArcOfEllipse(Point centre, double radiusX, double radiusY, double start, double end,
                    Colour colour) {
    DrawEllipse(centre, radiusX, radiusY, start, end, colour);
  }

  virtual void FillRect(Point corner, Point opposite, Colour colour) = 0;
  virtual void OutlineRect(Point corner, Point opposite, Colour colour) = 0;
  virtual void FillEllipse(Point centre, double radiusX, double radiusY, Colour colour) = 0;

  // Text with its top-left corner at `at`, in the current text colour and font.
  virtual void Text(Point at, const std::string& text) = 0;

  virtual void SetLineWidth(double width) = 0;
  virtual void SetTextColour(Colour colour) = 0;
  // Font size in points at the page's reference height; bold or normal.
  virtual void SetFont(double points, bool bold) = 0;
  virtual void NewPage() = 0;

  // Everything drawn so far since the last Clear is the drawing's background:
  // it depends only on what the chart shows (view, aspect, grid, page size),
  // not on the network, so a painter may keep it and show it again unchanged.
  virtual void EndOfBackground() {}

  static constexpr double kFullTurn = 6.283185307179586;

 protected:
  virtual void DrawLine(Point from, Point to, Colour colour) = 0;
  virtual void DrawEllipse(Point centre, double radiusX, double radiusY, double start, double end,
                           Colour colour) = 0;

 private:
  Point pen_;
};

// Page units in a printer's point: text sizes are given in points.
inline constexpr double kPageUnitsPerPoint = 20;

// The font of a page and its controls, in page units. A page fills the screen
// and its font is 0.0008 × the screen height in twips, in points: 0.016 of the
// page's height whatever the screen.
inline double PageFontSize(double pageHeight) { return 0.016 * pageHeight; }

}  // namespace kalvex
