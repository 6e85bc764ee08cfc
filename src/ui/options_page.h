#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/page.h"

namespace kalvex {

// The options page: a unit for line lengths, the velocity factor and a loss.
// Only the velocity factor is kept; "Return" checks it and goes back to the
// Design page.
class OptionsPage : public Page {
  Q_OBJECT

 public:
  OptionsPage(Session& session, Dialogs& dialogs);

  QLabel* Label1;
  QGroupBox* Frame1;
  QRadioButton* Option5;  // degrees
  QRadioButton* Option6;  // wavelengths
  QRadioButton* Option1;  // inches
  QRadioButton* Option2;  // feet
  QRadioButton* Option4;  // meters
  QLabel* lblVelocityFactor;
  QLineEdit* txtVelocityFactor;
  QLabel* lblLoss;
  QLineEdit* Text1;
  QLabel* lbldB;
  QPushButton* cmdExit;

 protected:
  bool OnUserClose() override;

 private:
  void Return();

  Session& session_;
  Dialogs& dialogs_;
};

}  // namespace kalvex
