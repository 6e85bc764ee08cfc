#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// The Tabulate page (frmTabulate), opened modally from the Analysis page: it
// recomputes the sweep without drawing and lists one fixed-pitch row a point,
// which it can send to the printer or to a sweep-data file.
class TabulatePage : public QDialog {
  Q_OBJECT

 public:
  TabulatePage(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  QLabel* lblTitle;
  QLabel* lblHeading0;
  QListWidget* lstTabulatedOutput;
  QPushButton* cmdExit;
  QPushButton* cmdPrint;
  QPushButton* cmdFile;

 private:
  void WriteToFile();

  Session& session_;
  Dialogs& dialogs_;
};

}  // namespace kalvex
