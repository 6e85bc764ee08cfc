#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <atomic>
#include <thread>

#include "matching/optimise.h"
#include "matching/snap.h"
#include "model/session.h"
#include "ui/series_boxes.h"

namespace kalvex {

// "Optimise": tunes the stages the user frees for the smallest worst VSWR over
// the band (or at the working frequency), off the window's thread so that the
// page stays responsive, with the present worst VSWR shown as it improves.
// "Snap to standard values" instead puts the stages that are not free on the
// series chosen per type and re-tunes the free ones. Opened by Ctrl+T on the
// Analysis page; exec() returns Accepted when the result was applied.
class OptimiseDialog : public QDialog {
  Q_OBJECT

 public:
  OptimiseDialog(Session& session, QWidget* parent = nullptr);
  ~OptimiseDialog() override;

  QCheckBox* chkStage[kLastStage];
  QCheckBox* chkImpedances;
  QCheckBox* chkWideBounds;
  QComboBox* cboLoadModel;
  QRadioButton* optBand;
  QRadioButton* optWorking;
  QPushButton* cmdStart;
  QProgressBar* barProgress;
  QLabel* lblWorst;
  QPushButton* cmdCancel;
  QPushButton* cmdApply;
  SeriesBoxes* series;

  // The name of the undo step of what Apply applied.
  QString AppliedStep() const;

  // Waits for a running search to end (for tests and closing).
  void WaitForSearch();

 private:
  void Start();
  void Finished(const OptimiseResult& result);
  void Snap();
  void Snapped(const SnapResult& result);
  // Runs `search` off the window's thread, with the progress shown.
  void RunSearch(std::function<void()> search);

  Session& session_;
  std::thread search_;
  std::atomic<bool> cancel_{false};
  OptimiseResult result_;  // what Apply writes: the optimised or the snapped stages
  bool snapped_ = false;
};

}  // namespace kalvex
