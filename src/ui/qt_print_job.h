#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>

#include "platform/dialogs.h"
#include "ui/painter_canvas.h"

namespace kalvex {

// A document on a Qt printer (or the PDF file Qt's print dialog offers): the
// page fills the printable area as far as its proportions allow, a line width
// of 1 is a six-hundredth of an inch.
class QtPrintJob : public PrintJob {
 public:
  // Starts the document on `printer`; no job, with the reason, when it cannot.
  static std::unique_ptr<PrintJob> Start(std::unique_ptr<QPrinter> printer, PageSize page,
                                         std::string& error);

  // Where the page goes in the printer's printable area: printer pixels are
  // square, so one scale across and down keeps a round chart round on every
  // paper size; the page is centred.
  static QRectF PrintedFrame(const QPrinter& printer, PageSize page);

  // A document that was never finished is abandoned, not printed.
  ~QtPrintJob() override;

  Canvas& Page() override { return *canvas_; }
  std::string Finish() override;

 private:
  explicit QtPrintJob(std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {}

  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
  std::unique_ptr<PainterCanvas> canvas_;
};

}  // namespace kalvex
