#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "matching/match.h"
#include "model/session.h"

namespace kalvex {

// "Match": every matching network for the load at the working frequency,
// with what each costs (loaded Q, response, DC path, worst VSWR over the
// band); "Apply" puts the chosen one into the stages. Opened by Ctrl+M on the
// Design and Analysis pages; exec() returns Accepted when one was applied.
class MatchDialog : public QDialog {
  Q_OBJECT

 public:
  MatchDialog(Session& session, QWidget* parent = nullptr);

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

  Session& session_;
  MatchResult result_;
  QString appliedStep_;
};

}  // namespace kalvex
