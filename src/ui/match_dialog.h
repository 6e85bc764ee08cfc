#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <optional>

#include "matching/match.h"
#include "matching/snap.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/background_task.h"
#include "ui/series_boxes.h"

namespace kalvex {

// "Match": every matching network for the load at the working frequency,
// with what each costs (loaded Q, response, DC path, worst VSWR over the
// band); "Apply" puts the chosen one into the stages, after asking where the
// Design page's limits would change a value. Before Apply, "Snap to
// standard values" puts the chosen network's capacitors, inductors and
// resistors on the series chosen per kind (re-tuning its lines and stubs, if
// it has any), off the window's thread; Apply then writes the snapped network,
// one step with the match. Its heading names the load, the
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
  SeriesBoxes* series;
  QLabel* lblSnap;
  QPushButton* cmdApply;
  QPushButton* cmdClose;

  // The undo step of the network applied: "Match applied (L, 2 parts)",
  // with ", snapped" after it when the snapped values were applied.
  const QString& AppliedStep() const { return appliedStep_; }

  // Waits for a running snap and shows its result (for tests).
  void WaitForSnap() { snapTask_.Wait(); }

 private:
  void Compute();
  void Apply();
  // The chosen solution, or nothing when no row is chosen.
  const MatchSolution* Chosen() const;
  void ChosenChanged();
  void Snap();
  void Snapped(const SnapResult& result);
  QString WorksOnText() const;

  Session& session_;
  Dialogs& dialogs_;
  MatchResult result_;
  std::optional<SnapResult> snap_;  // of the chosen solution, until another is chosen
  BackgroundTask snapTask_{this};
  QString appliedStep_;
};

}  // namespace kalvex
