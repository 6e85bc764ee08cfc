#include "platform/painter_canvas.h"

#include <QFontMetricsF>
#include <cmath>

namespace kalvex {
namespace {

// Page units per pixel of a page shown at its natural size (twips).
constexpr double kReferenceUnitsPerPixel = 15;

QPointF ToQt(Point p) { return {p.x, p.y}; }

QRectF RectOf(Point corner, Point opposite) {
  return QRectF(ToQt(corner), ToQt(opposite)).normalized();
}

}  // namespace

PainterCanvas::PainterCanvas(QPainter& painter, QSizeF pageSize, double pageToDevice,
                             std::function<void()> newPage)
    : painter_(painter),
      pageSize_(pageSize),
      pixelsPerWidth_(pageToDevice * kReferenceUnitsPerPixel),
      newPage_(std::move(newPage)) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setRenderHint(QPainter::TextAntialiasing);
  SetFont(PageFontSize(pageSize.height()) / kPageUnitsPerPoint, false);
}

QColor PainterCanvas::ToQColor(Colour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QPen PainterCanvas::PenOf(Colour colour) const {
  QPen pen(ToQColor(colour));
  pen.setCosmetic(true);
  pen.setWidthF(std::max(1.0, lineWidth_ * pixelsPerWidth_));
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  return pen;
}

void PainterCanvas::Clear(Colour background) {
  painter_.fillRect(QRectF(QPointF(0, 0), pageSize_), ToQColor(background));
}

void PainterCanvas::DrawLine(Point from, Point to, Colour colour) {
  painter_.setPen(PenOf(colour));
  if (from.x == to.x && from.y == to.y) {
    painter_.drawPoint(ToQt(from));  // a dot as wide as the line
  } else {
    painter_.drawLine(ToQt(from), ToQt(to));
  }
}

void PainterCanvas::DrawEllipse(Point centre, double radiusX, double radiusY, double start,
                                double end, Colour colour) {
  painter_.setPen(PenOf(colour));
  painter_.setBrush(Qt::NoBrush);
  const QRectF box(centre.x - radiusX, centre.y - radiusY, 2 * radiusX, 2 * radiusY);
  double span = end - start;
  if (span < 0) span += kFullTurn;
  if (span >= kFullTurn - 1e-9) {
    painter_.drawEllipse(box);
    return;
  }
  constexpr double kSixteenthsPerRadian = 16 * 180 / 3.141592653589793;
  painter_.drawArc(box, static_cast<int>(std::lround(start * kSixteenthsPerRadian)),
                   static_cast<int>(std::lround(span * kSixteenthsPerRadian)));
}

void PainterCanvas::FillRect(Point corner, Point opposite, Colour colour) {
  painter_.fillRect(RectOf(corner, opposite), ToQColor(colour));
}

void PainterCanvas::OutlineRect(Point corner, Point opposite, Colour colour) {
  painter_.setPen(PenOf(colour));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(RectOf(corner, opposite));
}

void PainterCanvas::FillEllipse(Point centre, double radiusX, double radiusY, Colour colour) {
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ToQColor(colour));
  painter_.drawEllipse(ToQt(centre), radiusX, radiusY);
  painter_.setBrush(Qt::NoBrush);
}

void PainterCanvas::Text(Point at, const std::string& text) {
  painter_.setPen(textColour_);
  const QFontMetricsF metrics(painter_.font());
  painter_.drawText(QPointF(at.x, at.y + metrics.ascent()), QString::fromStdString(text));
}

void PainterCanvas::SetLineWidth(double width) { lineWidth_ = width; }

void PainterCanvas::SetTextColour(Colour colour) { textColour_ = ToQColor(colour); }

void PainterCanvas::SetFont(double points, bool bold) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(points * kPageUnitsPerPoint))));
  font.setBold(bold);
  painter_.setFont(font);
}

void PainterCanvas::NewPage() {
  if (newPage_) newPage_();
}

}  // namespace kalvex
