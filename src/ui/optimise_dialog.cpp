#include "ui/optimise_dialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

#include "ui/controls.h"

namespace kalvex {

OptimiseDialog::OptimiseDialog(Session& session, QWidget* parent)
    : QDialog(parent),
      chkImpedances(new QCheckBox("Line and stub impedances free too", this)),
      chkWideBounds(new QCheckBox("Wide bounds: every value the Design page takes", this)),
      cboLoadModel(new QComboBox(this)),
      optBand(new QRadioButton("Worst point over the sweep band", this)),
      optWorking(new QRadioButton("At the working frequency", this)),
      cmdStart(new QPushButton("Start", this)),
      barProgress(new QProgressBar(this)),
      lblWorst(new QLabel(this)),
      cmdCancel(new QPushButton("Cancel", this)),
      cmdApply(new QPushButton("Apply", this)),
      series(new SeriesBoxes(this)),
      session_(session) {
  setWindowTitle("Optimise");
  setModal(true);
  DialogFrame(this);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel("Free stages (the others stay as they are):", this));
  for (int s = 1; s <= kLastStage; ++s) {
    const int16_t type = session_.ElementType[s];
    QCheckBox*& box = chkStage[s - 1];
    box = new QCheckBox(QString("Stage %1: %2").arg(s).arg(PartName(type)), this);
    box->setEnabled(IsPart(type) && type != TwoPort);
    if (type == TwoPort) box->setToolTip("A two-port block has no value to tune");
    box->setChecked(box->isEnabled());
    layout->addWidget(box);
  }
  layout->addWidget(chkImpedances);
  chkWideBounds->setToolTip("Otherwise capacitors and inductors stay between 0.01 and 100 times the system "
                            "impedance in reactance, lines and stubs between 20 and 150 ohms");
  layout->addWidget(chkWideBounds);
  cboLoadModel->addItems({"Load fixed: R + jX at every frequency", "Load fitted: R with the C or L of X"});
  layout->addWidget(cboLoadModel);
  layout->addWidget(optBand);
  layout->addWidget(optWorking);
  optBand->setChecked(true);
  layout->addWidget(series);
  barProgress->setRange(0, 0);
  barProgress->hide();
  layout->addWidget(barProgress);
  layout->addWidget(lblWorst);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* button : {cmdStart, cmdApply, cmdCancel}) buttons->addWidget(button);
  layout->addLayout(buttons);
  cmdApply->setEnabled(false);

  connect(cmdStart, &QPushButton::clicked, this, &OptimiseDialog::Start);
  connect(series->cmdSnap, &QPushButton::clicked, this, &OptimiseDialog::Snap);
  connect(cmdApply, &QPushButton::clicked, this, [this] {
    ApplyOptimised(session_, result_);
    accept();
  });
  // Cancel stops a running search (its best so far can still be applied);
  // otherwise it closes the dialog.
  connect(cmdCancel, &QPushButton::clicked, this, [this] {
    if (search_.joinable()) {
      cancel_ = true;
    } else {
      reject();
    }
  });
}

OptimiseDialog::~OptimiseDialog() {
  cancel_ = true;
  if (search_.joinable()) search_.join();
}

void OptimiseDialog::WaitForSearch() {
  if (search_.joinable()) search_.join();
  QCoreApplication::sendPostedEvents(this);
}

QString OptimiseDialog::AppliedStep() const {
  return snapped_ ? "Snapped to standard values" : "Optimise applied";
}

void OptimiseDialog::RunSearch(std::function<void()> search) {
  cancel_ = false;
  cmdStart->setEnabled(false);
  series->cmdSnap->setEnabled(false);
  cmdApply->setEnabled(false);
  barProgress->show();
  lblWorst->setText("Searching...");
  search_ = std::thread(std::move(search));
}

void OptimiseDialog::Start() {
  if (search_.joinable()) return;
  OptimiseRequest request;
  for (int s = 1; s <= kLastStage; ++s) {
    if (chkStage[s - 1]->isChecked()) request.freeStages.push_back(s);
  }
  request.freeImpedances = chkImpedances->isChecked();
  request.overBand = optBand->isChecked();
  request.wideBounds = chkWideBounds->isChecked();
  request.loadModel = cboLoadModel->currentIndex() == 1 ? LoadModel::Fitted : LoadModel::Fixed;
  QPointer<OptimiseDialog> self(this);
  RunSearch([this, self, request, session = session_] {
    const OptimiseResult result = Optimise(session, request, [this, self](int evaluations, double worst) {
      if (evaluations % 64 == 0) {
        QMetaObject::invokeMethod(self, [self, evaluations, worst] {
          if (self) self->lblWorst->setText(QString("Worst VSWR now %1 (%2 evaluations)").arg(worst, 0, 'g', 6).arg(evaluations));
        }, Qt::QueuedConnection);
      }
      return !cancel_;
    });
    QMetaObject::invokeMethod(self, [self, result] {
      if (self) self->Finished(result);
    }, Qt::QueuedConnection);
  });
}

void OptimiseDialog::Snap() {
  if (search_.joinable()) return;
  SnapRequest request;
  for (int s = 1; s <= kLastStage; ++s) {
    if (chkStage[s - 1]->isEnabled() && !chkStage[s - 1]->isChecked()) request.stages.push_back(s);
  }
  request.series = series->Choice();
  QPointer<OptimiseDialog> self(this);
  RunSearch([this, self, request, session = session_] {
    const SnapResult result = SnapToStandardValues(session, request, &cancel_);
    QMetaObject::invokeMethod(self, [self, result] {
      if (self) self->Snapped(result);
    }, Qt::QueuedConnection);
  });
}

void OptimiseDialog::Snapped(const SnapResult& result) {
  if (search_.joinable()) search_.join();
  result_ = OptimiseResult{};
  result_.before = result.before;
  result_.after = result.after;
  result_.stages = result.stages;
  snapped_ = true;
  barProgress->hide();
  lblWorst->setText(result.parts.empty()
                        ? QString("Snap puts the stages that are not free on standard values: none of them holds a C, L or R")
                        : QString("Worst VSWR %1 before, %2 rounded, %3 snapped%4 (%5 combinations)")
                              .arg(result.before, 0, 'g', 6)
                              .arg(result.rounded, 0, 'g', 6)
                              .arg(result.after, 0, 'g', 6)
                              .arg(result.cancelled ? ", stopped" : "")
                              .arg(result.combinations));
  cmdStart->setEnabled(true);
  series->cmdSnap->setEnabled(true);
  cmdApply->setEnabled(!result.parts.empty() && !result.cancelled);
}

void OptimiseDialog::Finished(const OptimiseResult& result) {
  if (search_.joinable()) search_.join();
  result_ = result;
  snapped_ = false;
  barProgress->hide();
  lblWorst->setText(QString("Worst VSWR %1 before, %2 after%3 (%4 evaluations)\n%5")
                        .arg(result.before, 0, 'g', 6)
                        .arg(result.after, 0, 'g', 6)
                        .arg(result.cancelled ? ", stopped: the best found so far" : "")
                        .arg(result.evaluations)
                        .arg(Q(OptimisedPartsNote(result)).trimmed()));
  cmdStart->setEnabled(true);
  series->cmdSnap->setEnabled(true);
  cmdApply->setEnabled(result.after < result.before);
}

}  // namespace kalvex
