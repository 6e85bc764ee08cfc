#include "ui/page_renderer.h"

#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>
#include <functional>
#include <optional>

#include "files/safe_write.h"
#include "ui/page_frame.h"
#include "ui/painter_canvas.h"

namespace kalvex {
namespace {

// How the drawing reaches a device: its page size, the line width unit, and
// for a paged device how to begin the next page.
struct Target {
  QSizeF pageSize;
  QSizeF shape;
  bool screenPage;
  double unitsPerWidth;
  std::function<void()> newPage;
};

void Paint(const DisplayList& drawing, QPainter& painter, const Target& target, QSizeF device) {
  const QRectF frame = PageFrame(device, target.shape);
  // A screen page's margins take the page background; paper stays white.
  if (target.screenPage) painter.fillRect(QRectF(QPointF(0, 0), device), PainterCanvas::ToQColor(kPageBackground));
  const double sx = frame.width() / target.pageSize.width();
  const double sy = frame.height() / target.pageSize.height();
  painter.translate(frame.topLeft());
  painter.scale(sx, sy);
  PainterCanvas canvas(painter, target.pageSize, std::sqrt(sx * sy), target.newPage,
                       target.unitsPerWidth);
  drawing.Replay(canvas, !target.newPage);
}

// Painting text needs a GUI application; the command line has no screen.
void EnsureGuiApplication() {
  if (QGuiApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "kalvex";
  static char* argv[] = {name, nullptr};
  static QGuiApplication application(argc, argv);
}

// The file's bytes, drawn in memory: nothing touches the disk until the
// whole file is there.
std::optional<QByteArray> Render(const DisplayList& drawing, Target target, QSize size,
                                 const QString& suffix) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QPainter painter;
  if (suffix == "png") {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::white);
    if (!painter.begin(&image)) return std::nullopt;
    Paint(drawing, painter, target, size);
    painter.end();
    if (!image.save(&bytes, "PNG")) return std::nullopt;
  } else if (suffix == "svg") {
    QSvgGenerator svg;
    svg.setOutputDevice(&bytes);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(0, 0), size));
    svg.setTitle("Kalvex");
    if (!painter.begin(&svg)) return std::nullopt;
    Paint(drawing, painter, target, size);
    painter.end();
  } else {
    QPdfWriter pdf(&bytes);
    pdf.setResolution(72);
    pdf.setPageSize(QPageSize(QSizeF(size), QPageSize::Point));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setTitle("Kalvex");
    target.newPage = [&pdf] { pdf.newPage(); };
    if (!painter.begin(&pdf)) return std::nullopt;
    Paint(drawing, painter, target, size);
    painter.end();
  }
  return bytes.data();
}

}  // namespace

std::string RenderToFile(const DisplayList& drawing, PageSize page, int width, int height,
                         const std::string& path, double unitsPerWidth, PageSize shape) {
  const QString suffix = QFileInfo(QString::fromStdString(path)).suffix().toLower();
  if (suffix != "png" && suffix != "svg" && suffix != "pdf") {
    return path + " is not of a type Kalvex writes images in (.png, .svg or .pdf)";
  }
  EnsureGuiApplication();
  const std::optional<QByteArray> bytes =
      Render(drawing,
             {QSizeF(page.width, page.height),
              shape.width > 0 ? QSizeF(shape.width, shape.height) : QSizeF(page.width, page.height),
              shape.width > 0, unitsPerWidth, {}},
             QSize(width, height), suffix);
  if (!bytes) return "the drawing for " + path + " could not be made";
  return WriteFileSafely(path, std::string_view(bytes->constData(), bytes->size()));
}

}  // namespace kalvex
