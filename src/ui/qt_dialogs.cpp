#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QThread>

#include "files/text_file.h"
#include "ui/controls.h"
#include "ui/qt_print_job.h"

namespace kalvex {
namespace {

QWidget* ActiveWindow() { return QApplication::activeWindow(); }

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok: return QMessageBox::Ok;
    case MessageButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Warning: return QMessageBox::Warning;
    case MessageIcon::Critical: return QMessageBox::Critical;
    case MessageIcon::Question: return QMessageBox::Question;
  }
  return QMessageBox::Information;
}

}  // namespace

QString QtFileFilter(const std::string& filter) {
  // "Name (patterns)|patterns|Name (patterns)|patterns": the names, the first
  // one selected.
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList names;
  for (qsizetype k = 0; k < parts.size(); k += 2) names << parts[k];
  return names.join(";;");
}

MessageAnswer QtDialogs::Message(const std::string& text, const std::string& title,
                                 MessageButtons buttons, MessageIcon icon) {
  QString body = QString::fromStdString(text);
  body.replace("\r\n", "\n");
  QMessageBox box(IconOf(icon), QString::fromStdString(title.empty() ? kProgramTitle : title),
                  body, ButtonsOf(buttons), ActiveWindow());
  DialogFrame(&box);
  switch (box.exec()) {
    case QMessageBox::Cancel: return MessageAnswer::Cancel;
    case QMessageBox::Yes: return MessageAnswer::Yes;
    case QMessageBox::No: return MessageAnswer::No;
    default: return MessageAnswer::Ok;
  }
}

std::string QtDialogs::ChooseOpenFile(const std::string& title, const std::string& filter,
                                      const std::string& startName) {
  return QFileDialog::getOpenFileName(ActiveWindow(), QString::fromStdString(title),
                                      QString::fromStdString(startName), QtFileFilter(filter))
      .toStdString();
}

std::string QtDialogs::ChooseSaveFile(const std::string& title, const std::string& filter,
                                      const std::string& startName) {
  QString selected;
  const std::string chosen =
      QFileDialog::getSaveFileName(ActiveWindow(), QString::fromStdString(title),
                                   QString::fromStdString(startName), QtFileFilter(filter),
                                   &selected)
          .toStdString();
  return WithFilterType(chosen, selected.toStdString());
}

std::unique_ptr<PrintJob> QtDialogs::StartPrint(PageSize page, std::string& error) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPrintDialog dialog(printer.get(), ActiveWindow());
  if (dialog.exec() != QDialog::Accepted) {
    error = "Printing was cancelled.";
    return nullptr;
  }
  return QtPrintJob::Start(std::move(printer), page, error);
}

void QtDialogs::Beep() { QApplication::beep(); }

void QtDialogs::Pause(double seconds) {
  // A monotonic clock: the wait ends on time also across midnight.
  QElapsedTimer timer;
  timer.start();
  const qint64 wait = static_cast<qint64>(seconds * 1000);
  QApplication::processEvents();
  while (timer.elapsed() < wait) {
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    QThread::msleep(10);
  }
}

std::string QtDialogs::LocalDateTime() {
  return QDateTime::currentDateTime().toString("yyyy-MM-dd hh:mm:ss").toStdString();
}

}  // namespace kalvex
