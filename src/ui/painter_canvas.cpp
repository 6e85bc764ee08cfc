#include "ui/painter_canvas.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <map>
#include <tuple>
#include <cmath>

namespace kalvex {
namespace {

// Line widths start to grow when a page unit takes more than 1/7.5 pixel:
// twice the natural size of 15 units a pixel.
constexpr double kReferenceUnitsPerPixel = 7.5;

QPointF ToQt(Point p) { return {p.x, p.y}; }

QRectF RectOf(Point corner, Point opposite) {
  return QRectF(ToQt(corner), ToQt(opposite)).normalized();
}

}  // namespace

PainterCanvas::PainterCanvas(QPainter& painter, QSizeF pageSize, double pageToDevice,
                             std::function<void()> newPage, double unitsPerWidth)
    : painter_(painter),
      pageSize_(pageSize),
      pixelsPerWidth_(pageToDevice *
                      (unitsPerWidth > 0 ? unitsPerWidth : kReferenceUnitsPerPixel)),
      newPage_(std::move(newPage)) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setRenderHint(QPainter::TextAntialiasing);
  SetFont(PageFontSize(pageSize.height()) / kPageUnitsPerPoint, false);
}

PainterCanvas::~PainterCanvas() { FlushLines(); }

// The mark of an ellipse of half-axes `rx`, `ry` device pixels in `colour`,
// its stroke centred in its image; kept for the program's life, as the chart
// uses a handful of sizes and colours.
const QImage& MarkImage(double rx, double ry, const QColor& colour, double ratio) {
  static std::map<std::tuple<int, int, QRgb, int>, QImage> marks;
  const int eighthsX = static_cast<int>(std::lround(rx * 8));
  const int eighthsY = static_cast<int>(std::lround(ry * 8));
  QImage& image = marks[{eighthsX, eighthsY, colour.rgba(), static_cast<int>(std::lround(ratio * 8))}];
  if (image.isNull()) {
    const int width = static_cast<int>(std::ceil(2 * rx)) + 4;
    const int height = static_cast<int>(std::ceil(2 * ry)) + 4;
    image = QImage(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(colour);
    pen.setCosmetic(true);
    pen.setWidthF(0);
    painter.setPen(pen);
    painter.drawEllipse(QPointF(width / 2.0, height / 2.0), eighthsX / 8.0, eighthsY / 8.0);
    image.setDevicePixelRatio(ratio);
  }
  return image;
}

bool PainterCanvas::OnRaster() const {
  return painter_.paintEngine() != nullptr && painter_.paintEngine()->type() == QPaintEngine::Raster;
}

bool PainterCanvas::GatherMark(Point centre, double radiusX, double radiusY, Colour colour) {
  if (!OnRaster()) return false;
  const QTransform page = painter_.transform();
  if (page.isRotating()) return false;
  if (!lines_.isEmpty()) FlushLines();
  const double ratio = painter_.device()->devicePixelRatioF();
  const QImage& mark = MarkImage(radiusX * std::fabs(page.m11()) * ratio, radiusY * std::fabs(page.m22()) * ratio,
                                 ToQColor(colour), ratio);
  const QPointF at = page.map(QPointF(centre.x, centre.y));
  const QPointF corner = at - QPointF(mark.width(), mark.height()) / ratio / 2;
  marks_.push_back({QPointF(std::round(corner.x() * ratio), std::round(corner.y() * ratio)) / ratio, &mark});
  return true;
}

// A wide line is stroked piece by piece, each piece with its own caps, and a
// file writes every piece: the path's thousands of pieces shorter than a
// device unit (a pixel, a point) are joined into pieces of at least one along
// their chain, which look the same and take a fraction of the time.
QVector<QLineF> PainterCanvas::JoinedUnderAPixel(const QVector<QLineF>& lines) const {
  const QTransform& page = painter_.transform();
  QVector<QLineF> joined;
  joined.reserve(lines.size());
  for (const QLineF& line : lines) {
    if (!joined.isEmpty() && joined.back().p2() == line.p1()) {
      const QLineF last = page.map(joined.back());
      if (last.dx() * last.dx() + last.dy() * last.dy() < 1) {
        joined.back().setP2(line.p2());
        continue;
      }
    }
    joined.append(line);
  }
  return joined;
}

void PainterCanvas::FlushLines() {
  if (!marks_.empty()) {
    const QTransform page = painter_.transform();
    painter_.resetTransform();
    for (const auto& [at, mark] : marks_) painter_.drawImage(at, *mark);
    painter_.setTransform(page);
    marks_.clear();
  }
  if (lines_.isEmpty()) return;
  const double width = lineWidth_;
  lineWidth_ = linesWidth_;
  painter_.setPen(PenOf(linesColour_));
  lineWidth_ = width;
  if (OnRaster()) {
    painter_.drawLines(painter_.pen().widthF() > 0 ? JoinedUnderAPixel(lines_) : lines_);
  } else {
    // A file (PDF, SVG) gets each run of joined lines as one polyline: half
    // the text of separate lines, and as much less to write and compress.
    QVector<QPointF> run;
    const QVector<QLineF> lines = JoinedUnderAPixel(lines_);
    for (qsizetype k = 0; k < lines.size(); ++k) {
      if (run.isEmpty() || lines[k].p1() != run.back()) {
        if (run.size() > 1) painter_.drawPolyline(run);
        run = {lines[k].p1()};
      }
      run.append(lines[k].p2());
    }
    if (run.size() > 1) painter_.drawPolyline(run);
  }
  lines_.clear();
}

void PainterCanvas::GatherLine(QPointF from, QPointF to, Colour colour) {
  if (!marks_.empty()) FlushLines();
  if (!lines_.isEmpty() && (linesColour_ != colour || linesWidth_ != lineWidth_)) FlushLines();
  linesColour_ = colour;
  linesWidth_ = lineWidth_;
  lines_.append({from, to});
}

QColor PainterCanvas::ToQColor(Colour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QPen PainterCanvas::PenOf(Colour colour) const {
  QPen pen(ToQColor(colour));
  pen.setCosmetic(true);
  // Up to a pixel and a half a line is drawn one pixel wide, by Qt's fast
  // hairline path: a redraw of the chart is then several times quicker.
  const double width = lineWidth_ * pixelsPerWidth_;
  pen.setWidthF(width < 1.5 ? 0 : width);
  // Round caps and joins cost a curve at every vertex of a 5,000-point path;
  // at these widths bevelled joins look the same.
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::BevelJoin);
  return pen;
}

void PainterCanvas::Clear(Colour background) {
  FlushLines();
  painter_.fillRect(QRectF(QPointF(0, 0), pageSize_), ToQColor(background));
}

void PainterCanvas::DrawLine(Point from, Point to, Colour colour) {
  if (from.x == to.x && from.y == to.y) {
    FlushLines();
    QPen dot = PenOf(colour);
    dot.setCapStyle(Qt::RoundCap);  // a round dot as wide as the line
    painter_.setPen(dot);
    painter_.drawPoint(ToQt(from));
    return;
  }
  GatherLine(ToQt(from), ToQt(to), colour);
}

void PainterCanvas::DrawEllipse(Point centre, double radiusX, double radiusY, double start,
                                double end, Colour colour) {
  double span = end - start;
  if (span < 0) span += kFullTurn;
  const bool full = span >= kFullTurn - 1e-9;
  // A small full circle in a one-pixel line (the sweep's thousands of point
  // marks) joins the gathered lines as a polygon of at least 12 chords no
  // longer than three pixels, which looks the same and strokes many times faster.
  const double pixels = std::max(radiusX, radiusY) * painter_.transform().m11();
  if (full && lineWidth_ * pixelsPerWidth_ < 1.5 && pixels < 40 && GatherMark(centre, radiusX, radiusY, colour)) {
    return;
  }
  if (full && lineWidth_ * pixelsPerWidth_ < 1.5 && pixels < 40) {
    const int chords = std::max(12, static_cast<int>(std::ceil(kFullTurn * pixels / 3)));
    if (static_cast<int>(unitCircle_.size()) != chords + 1) {
      unitCircle_.clear();
      for (int k = 0; k <= chords; ++k) {
        const double a = kFullTurn * k / chords;
        unitCircle_.push_back({std::cos(a), std::sin(a)});
      }
    }
    for (int k = 1; k <= chords; ++k) {
      GatherLine({centre.x + radiusX * unitCircle_[k - 1].x(), centre.y + radiusY * unitCircle_[k - 1].y()},
                 {centre.x + radiusX * unitCircle_[k].x(), centre.y + radiusY * unitCircle_[k].y()},
                 colour);
    }
    return;
  }
  FlushLines();
  painter_.setPen(PenOf(colour));
  painter_.setBrush(Qt::NoBrush);
  const QRectF box(centre.x - radiusX, centre.y - radiusY, 2 * radiusX, 2 * radiusY);
  if (full) {
    painter_.drawEllipse(box);
    return;
  }
  constexpr double kSixteenthsPerRadian = 16 * 180 / 3.141592653589793;
  painter_.drawArc(box, static_cast<int>(std::lround(start * kSixteenthsPerRadian)),
                   static_cast<int>(std::lround(span * kSixteenthsPerRadian)));
}

void PainterCanvas::FillRect(Point corner, Point opposite, Colour colour) {
  FlushLines();
  painter_.fillRect(RectOf(corner, opposite), ToQColor(colour));
}

void PainterCanvas::OutlineRect(Point corner, Point opposite, Colour colour) {
  FlushLines();
  painter_.setPen(PenOf(colour));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(RectOf(corner, opposite));
}

void PainterCanvas::FillEllipse(Point centre, double radiusX, double radiusY, Colour colour) {
  FlushLines();
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ToQColor(colour));
  painter_.drawEllipse(ToQt(centre), radiusX, radiusY);
  painter_.setBrush(Qt::NoBrush);
}

void PainterCanvas::Text(Point at, const std::string& text) {
  FlushLines();
  painter_.setPen(textColour_);
  // The text stands where the page puts it, but its glyphs are never
  // stretched: they take the smaller of the page's two scales in both
  // directions.
  const QTransform page = painter_.transform();
  const QPointF corner = page.map(QPointF(at.x, at.y));
  const double glyphScale = std::min(std::fabs(page.m11()), std::fabs(page.m22()));
  painter_.save();
  painter_.setTransform(QTransform::fromScale(glyphScale, glyphScale) *
                        QTransform::fromTranslate(corner.x(), corner.y()));
  const QFontMetricsF metrics(painter_.font());
  painter_.drawText(QPointF(0, metrics.ascent()), QString::fromStdString(text));
  painter_.restore();
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
  FlushLines();
  if (newPage_) newPage_();
}

}  // namespace kalvex
