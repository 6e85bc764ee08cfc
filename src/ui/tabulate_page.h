#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/page.h"

namespace kalvex {

// The Tabulate page (frmTabulate), opened modally from the Analysis page: it
// recomputes the sweep without drawing and lists one fixed-pitch row a point,
// which it can send to the printer or to a sweep-data file. Its controls are
// laid out on a page filling the dialog, below the menu bar, as on the
// Analysis page.
class TabulatePage : public QDialog {
  Q_OBJECT

 public:
  TabulatePage(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  Page* sheet;
  QLabel* lblTitle;
  QLabel* lblHeading0;
  QListWidget* lstTabulatedOutput;
  QPushButton* cmdExit;
  QPushButton* cmdPrint;
  QPushButton* cmdFile;

 private:
  void WriteToFile();
  void SaveTwoPort();

  Session& session_;
  Dialogs& dialogs_;
};

}  // namespace kalvex
