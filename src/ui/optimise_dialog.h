#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <atomic>
#include <thread>

#include "matching/optimise.h"
#include "model/session.h"

namespace kalvex {

// "Optimise": tunes the stages the user frees for the smallest worst VSWR over
// the band (or at the working frequency), off the window's thread so that the
// page stays responsive, with the present worst VSWR shown as it improves.
// Opened by Ctrl+T on the Analysis page; exec() returns Accepted when the
// result was applied.
class OptimiseDialog : public QDialog {
  Q_OBJECT

 public:
  OptimiseDialog(Session& session, QWidget* parent = nullptr);
  ~OptimiseDialog() override;

  QCheckBox* chkStage[kLastStage];
  QCheckBox* chkImpedances;
  QRadioButton* optBand;
  QRadioButton* optWorking;
  QPushButton* cmdStart;
  QProgressBar* barProgress;
  QLabel* lblWorst;
  QPushButton* cmdCancel;
  QPushButton* cmdApply;

  // Waits for a running search to end (for tests and closing).
  void WaitForSearch();

 private:
  void Start();
  void Finished(const OptimiseResult& result);

  Session& session_;
  std::thread search_;
  std::atomic<bool> cancel_{false};
  OptimiseResult result_;
};

}  // namespace kalvex
