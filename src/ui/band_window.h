#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <vector>

#include "analysis/band_plot.h"
#include "matching/yield.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/background_task.h"
#include "ui/page.h"

namespace kalvex {

// "Band": the band plot of the session's network in a window of its own,
// opened by Ctrl+G on the Analysis and Tabulate pages. It follows every change
// the Analysis page redraws for, resizes without stretching, exports by
// Ctrl+E and prints by Ctrl+P; V, R and G choose VSWR, return loss or |Gamma|.
// Y chooses the yield: networks built from parts spread within their
// tolerances, computed off the window's thread (a change stops a computation
// that is running and starts it again), with the goal, the spread, the
// samples, the seed and each part's tolerance in boxes beside it. Those
// settings last as long as the program, not in the network file.
class BandWindow : public Page {
  Q_OBJECT

 public:
  // Shows the one band window, opening it when none is open; `modal` for one
  // opened over a modal page.
  static BandWindow* Show(const Session& session, Dialogs& dialogs, bool modal = false);

  // Draws the open band window again, if there is one.
  static void RefreshOpen();

  // The yield's settings as the user last left them, for the program's run:
  // closing the window keeps them, and the network file knows nothing of them.
  static YieldRequest& YieldSettings();

  void Show(BandQuantity quantity);
  BandQuantity Quantity() const { return quantity_; }
  void Show(LoadModel loadModel);
  LoadModel LoadModelShown() const { return loadModel_; }
  void ShowYield();
  bool YieldShown() const { return yieldShown_; }

  // The yield shown and how it was computed (empty before the first result).
  const YieldResult& Yield() const { return yield_; }
  const YieldRequest& YieldComputedWith() const { return yieldRequest_; }
  // Waits for a running yield computation and shows its result (for tests).
  void WaitForYield() { yieldTask_.Wait(); }

  QLabel* lblGoal;
  QLineEdit* txtGoal;
  QLabel* lblSamples;
  QLineEdit* txtSamples;
  QLabel* lblSpread;
  QComboBox* cboSpread;
  QLabel* lblSeed;
  QLineEdit* txtSeed;
  QTableWidget* tblTolerances;  // stage, part, tolerance (%), the last editable

 private:
  BandWindow(const Session& session, Dialogs& dialogs);
  void PlaceYieldControls();
  void Refresh();
  void Print();
  void RecomputeYield();
  void DrawYield(const std::string& note);
  // One row a part of the network, refilled when the parts change.
  void FillTolerances();
  void ToleranceEdited(QTableWidgetItem* item);
  // Reads the goal, samples, seed and spread boxes into the settings, each
  // box written back as it was taken.
  void SettingsEntered();

  const Session& session_;
  Dialogs& dialogs_;
  BandQuantity quantity_ = BandQuantity::VSWR;
  LoadModel loadModel_ = LoadModel::Fixed;
  bool yieldShown_ = false;
  std::vector<NetworkPart> toleranceRows_;
  YieldResult yield_;
  YieldRequest yieldRequest_;
  BackgroundTask yieldTask_{this};
};

}  // namespace kalvex
