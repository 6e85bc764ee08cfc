#include "ui/qt_print_job.h"

#include <cmath>

#include "ui/page_frame.h"

namespace kalvex {

std::unique_ptr<PrintJob> QtPrintJob::Start(std::unique_ptr<QPrinter> printer, PageSize page,
                                            std::string& error) {
  std::unique_ptr<QtPrintJob> job(new QtPrintJob(std::move(printer)));
  if (!job->painter_.begin(job->printer_.get())) {
    error = "The printer could not be started.";
    return nullptr;
  }
  const QRectF frame = PrintedFrame(*job->printer_, page);
  const double sx = frame.width() / page.width;
  const double sy = frame.height() / page.height;
  job->painter_.translate(frame.topLeft());
  job->painter_.scale(sx, sy);
  QPrinter* device = job->printer_.get();
  const double unitsPerWidth = page.width * job->printer_->resolution() / 600 / frame.width();
  job->canvas_ = std::make_unique<PainterCanvas>(
      job->painter_, QSizeF(page.width, page.height), std::sqrt(sx * sy),
      [device] { device->newPage(); }, unitsPerWidth);
  return job;
}

QRectF QtPrintJob::PrintedFrame(const QPrinter& printer, PageSize page) {
  return PageFrame(printer.pageRect(QPrinter::DevicePixel).size(), QSizeF(page.width, page.height));
}

QtPrintJob::~QtPrintJob() {
  if (!painter_.isActive()) return;
  canvas_.reset();
  printer_->abort();
  painter_.end();
}

std::string QtPrintJob::Finish() {
  canvas_.reset();
  return painter_.end() ? "" : "The printer did not take the document.";
}

}  // namespace kalvex
