#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "matching/match.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// "Match": every matching network for the load at the working frequency,
// with what each costs (loaded Q, response, DC path, worst VSWR over the
// band); "Apply" puts the chosen one into the stages, after asking where the
// Design page's limits would change a value. Its heading names the load, the
// working frequency, the system impedance and the band. Opened by Ctrl+M on
// the Design and Analysis pages; exec() returns Accepted when one was applied.
class MatchDialog : public QDialog {
  Q_OBJECT

 public:
  MatchDialog(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  QLabel* lblWorksOn;
  QComboBox* cboKind;
  QLineEdit* txtQ;
  QComboBox* cboSections;
  QLineEdit* txtRipple;
  QPushButton* cmdCompute;
  QTableWidget* lstSolutions;
  QLabel* lblNotes;
  QPushButton* cmdApply;
  QPushButton* cmdClose;

  // The undo step of the network applied: "Match applied (L, 2 parts)".
  const QString& AppliedStep() const { return appliedStep_; }

 private:
  void Compute();
  void Apply();
  QString WorksOnText() const;

  Session& session_;
  Dialogs& dialogs_;
  MatchResult result_;
  QString appliedStep_;
};

}  // namespace kalvex
