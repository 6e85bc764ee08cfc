#pragma once

#include <QPainter>
#include <QVector>
#include <functional>
#include <vector>

#include "platform/canvas.h"

namespace kalvex {

// A Canvas on a QPainter, so one drawing reaches a window, an image, an SVG,
// a PDF or a printer. The painter maps page units to the device. Line widths
// are in pixels, as on the screen the chart was made for, until the page is
// shown at more than twice its natural size (15 page units a pixel); from
// there they grow with it, so that print and large images keep their weight.
class PainterCanvas : public Canvas {
 public:
  // `pageSize` is the logical page; `pageToDevice` how many device pixels a
  // page unit takes. `newPage` starts the next page of a paged device. A
  // printed page gives the page units of its line width unit (a printer's
  // pixel) in `unitsPerWidth`, instead of the screen's rule above.
  PainterCanvas(QPainter& painter, QSizeF pageSize, double pageToDevice,
                std::function<void()> newPage = {}, double unitsPerWidth = 0);
  ~PainterCanvas() override;
  PainterCanvas(const PainterCanvas&) = delete;
  PainterCanvas& operator=(const PainterCanvas&) = delete;

  void Clear(Colour background) override;
  void FillRect(Point corner, Point opposite, Colour colour) override;
  void OutlineRect(Point corner, Point opposite, Colour colour) override;
  void FillEllipse(Point centre, double radiusX, double radiusY, Colour colour) override;
  void Text(Point at, const std::string& text) override;
  void SetLineWidth(double width) override;
  void SetTextColour(Colour colour) override;
  void SetFont(double points, bool bold) override;
  void NewPage() override;
  // The background's lines go out before what follows, as they would when a
  // cached background is shown instead: both give the same pixels.
  void EndOfBackground() override { FlushLines(); }

  static QColor ToQColor(Colour colour);

 protected:
  void DrawLine(Point from, Point to, Colour colour) override;
  void DrawEllipse(Point centre, double radiusX, double radiusY, double start, double end,
                   Colour colour) override;

 private:
  QPen PenOf(Colour colour) const;
  // Lines of one pen are stroked in one call, far faster than line by line;
  // a change of pen, or any other drawing, strokes what has gathered.
  void GatherLine(QPointF from, QPointF to, Colour colour);
  // On a raster device a small one-pixel circle (the sweep's thousands of
  // point marks) is one image painted once and copied to each place.
  bool GatherMark(Point centre, double radiusX, double radiusY, Colour colour);
  // Draws what has gathered, lines or marks (only one kind gathers at a time).
  void FlushLines();
  QVector<QLineF> JoinedUnderAPixel(const QVector<QLineF>& lines) const;
  // Whether the device is an image or a window rather than a file.
  bool OnRaster() const;

  QPainter& painter_;
  QSizeF pageSize_;
  double pixelsPerWidth_;
  std::function<void()> newPage_;
  double lineWidth_ = 1;
  QColor textColour_ = Qt::black;
  QVector<QLineF> lines_;
  std::vector<std::pair<QPointF, const QImage*>> marks_;
  std::vector<QPointF> unitCircle_;  // the corners of the last chord polygon, radius 1
  Colour linesColour_ = 0;
  double linesWidth_ = 0;
};


}  // namespace kalvex
