#pragma once

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <functional>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// "Sweep setup" (frmSweepSetup): start, stop and number of points of a manual
// sweep. Opening it returns to the manual definition. Any edit of the three
// boxes calls `settingsEdited` (the Tabulate button no longer matches); Accept
// keeps the values within their limits, calls `sweepSwitchable` with whether
// the sweep's switch may be used, and closes.
class SweepSetupDialog : public QDialog {
  Q_OBJECT

 public:
  SweepSetupDialog(Session& session, Dialogs& dialogs, std::function<void()> settingsEdited,
                   std::function<void(bool)> sweepSwitchable, QWidget* parent = nullptr);

  QLabel* Label1;
  QGroupBox* Frame1;
  QRadioButton* Option1;
  QRadioButton* Option2;
  QLabel* Label2;
  QLineEdit* txtStart;
  QLabel* Label3;
  QLineEdit* txtStop;
  QLabel* Label4;
  QLineEdit* txtPoints;
  QLabel* Label5;
  QPushButton* cmdAccept;

 private:
  void Accept();

  Session& session_;
  Dialogs& dialogs_;
  std::function<void(bool)> sweepSwitchable_;
};

}  // namespace kalvex
