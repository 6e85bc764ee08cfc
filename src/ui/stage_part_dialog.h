#pragma once

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QStackedWidget>
#include <vector>

#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/stage_part_form.h"

namespace kalvex {

// "Cable or transformer": puts a part the Design page's library does not
// hold into a stage. The stage is the one the page has selected or, with
// none, the first free one, and can be changed here; the kind list holds one
// form per kind (a coaxial cable, a transformer), and a stage that already
// holds a kind opens on it with its values. Opened by Ctrl+Shift+C and the
// Tools menu of the Design page, and by a click on such a stage; exec()
// returns Accepted when a part was put in.
class StagePartDialog : public QDialog {
  Q_OBJECT

 public:
  // `stage` 1..5, or any other number when the page has none selected.
  StagePartDialog(Session& session, Dialogs& dialogs, int stage, QWidget* parent = nullptr);

  QComboBox* cboStage;  // "Stage 1 (series capacitor)" ... "Stage 5 (empty)"
  QComboBox* cboKind;
  QStackedWidget* forms;
  QPushButton* cmdApply;
  QPushButton* cmdCancel;
  QPushButton* cmdTwoPort;  // "Two-port from file...": exec() returns kTwoPortChosen

  // The result of exec() when the user goes on to a two-port block from a
  // file for the chosen stage (TwoPortDialog), which has a dialog of its own.
  static constexpr int kTwoPortChosen = 2;
  int Stage() const { return cboStage->currentIndex() + 1; }

  // The undo step of the part put in: "Cable in stage 2".
  const QString& AppliedStep() const { return appliedStep_; }

  StagePartForm* Form() const { return static_cast<StagePartForm*>(forms->currentWidget()); }

 private:
  void AddForm(StagePartForm* form);
  void ShowStage();
  void Apply();

  Session& session_;
  Dialogs& dialogs_;
  QString appliedStep_;
};

}  // namespace kalvex
