#include "ui/page_renderer.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <cmath>
#include <functional>

#include "ui/painter_canvas.h"

namespace kalvex {
namespace {

// How the drawing reaches a device: its page size, the line width unit, and
// for a paged device how to begin the next page.
struct Target {
  QSizeF pageSize;
  double unitsPerWidth;
  std::function<void()> newPage;
};

void Paint(const DisplayList& drawing, QPainter& painter, const Target& target, QSizeF device) {
  const double sx = device.width() / target.pageSize.width();
  const double sy = device.height() / target.pageSize.height();
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

QString Render(const DisplayList& drawing, Target target, QSize size, const QString& path) {
  const QString suffix = QFileInfo(path).suffix().toLower();
  if (suffix == "png") {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Paint(drawing, painter, target, size);
    painter.end();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit()) {
      return "cannot write " + path;
    }
    return {};
  }
  if (suffix == "svg" || suffix == "pdf") {
    // Both writers open the file themselves: they write beside it, then rename.
    const QString temporary = path + ".tmp";
    bool painted = false;
    if (suffix == "svg") {
      QSvgGenerator svg;
      svg.setFileName(temporary);
      svg.setSize(size);
      svg.setViewBox(QRect(QPoint(0, 0), size));
      svg.setTitle("Kalvex");
      QPainter painter;
      if ((painted = painter.begin(&svg))) Paint(drawing, painter, target, size);
    } else {
      QPdfWriter pdf(temporary);
      pdf.setResolution(72);
      pdf.setPageSize(QPageSize(QSizeF(size), QPageSize::Point));
      pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
      pdf.setTitle("Kalvex");
      QPainter painter;
      target.newPage = [&pdf] { pdf.newPage(); };
      if ((painted = painter.begin(&pdf))) Paint(drawing, painter, target, size);
    }
    if (!painted || (QFile::exists(path) && !QFile::remove(path)) ||
        !QFile::rename(temporary, path)) {
      QFile::remove(temporary);
      return "cannot write " + path;
    }
    return {};
  }
  return "the output must end in .png, .svg or .pdf: " + path;
}

}  // namespace

std::string RenderToFile(const DisplayList& drawing, PageSize page, int width, int height,
                         const std::string& path, double unitsPerWidth) {
  EnsureGuiApplication();
  return Render(drawing, {QSizeF(page.width, page.height), unitsPerWidth, {}},
                QSize(width, height), QString::fromStdString(path))
      .toStdString();
}

}  // namespace kalvex
