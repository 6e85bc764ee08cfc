#include "ui/two_port_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/controls.h"

namespace kalvex {
namespace {

constexpr const char* kTwoPortFiles = "Two-port Touchstone files (*.s2p *.ts)|*.s2p|All files (*)|*";

}  // namespace

TwoPortDialog::TwoPortDialog(Session& session, Dialogs& dialogs, int stage, QWidget* parent)
    : QDialog(parent),
      spnStage(new QSpinBox(this)),
      txtFile(new QLineEdit(this)),
      optCascade(new QRadioButton("Cascade: port 1 towards the generator, port 2 towards the load", this)),
      optSeries(new QRadioButton("Series: the part between its ports, in series in the line", this)),
      optShunt(new QRadioButton("Shunt: the part at port 1, across the line", this)),
      optPort2Open(new QRadioButton("Port 2 open", this)),
      optPort2Shorted(new QRadioButton("Port 2 shorted", this)),
      chkSwapPorts(new QCheckBox("Swap ports 1 and 2", this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle("Two-port from file");
  spnStage->setRange(1, kLastStage);
  spnStage->setValue(stage >= 1 && stage <= kLastStage ? stage : FirstFreeStage(session_));
  txtFile->setMinimumWidth(360);
  auto* browse = new QPushButton("Browse...", this);
  auto* fileRow = new QHBoxLayout;
  fileRow->addWidget(txtFile);
  fileRow->addWidget(browse);

  auto* placement = new QGroupBox("Placement", this);
  auto* placementRows = new QVBoxLayout(placement);
  for (QRadioButton* option : {optCascade, optSeries, optShunt}) placementRows->addWidget(option);
  auto* shuntEnd = new QHBoxLayout;
  shuntEnd->addSpacing(24);
  shuntEnd->addWidget(optPort2Open);
  shuntEnd->addWidget(optPort2Shorted);
  placementRows->addLayout(shuntEnd);
  // The two groups of options exclude within themselves only.
  auto* placements = new QButtonGroup(this);
  for (QRadioButton* option : {optCascade, optSeries, optShunt}) placements->addButton(option);
  auto* ends = new QButtonGroup(this);
  for (QRadioButton* option : {optPort2Open, optPort2Shorted}) ends->addButton(option);
  optCascade->setChecked(true);
  optPort2Open->setChecked(true);
  const auto followShunt = [this] {
    optPort2Open->setEnabled(optShunt->isChecked());
    optPort2Shorted->setEnabled(optShunt->isChecked());
  };
  connect(optShunt, &QRadioButton::toggled, this, followShunt);
  followShunt();

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* form = new QFormLayout;
  form->addRow("Stage", spnStage);
  form->addRow("File", fileRow);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(placement);
  layout->addWidget(chkSwapPorts);
  layout->addWidget(buttons);

  connect(browse, &QPushButton::clicked, this, &TwoPortDialog::Browse);
  connect(buttons, &QDialogButtonBox::accepted, this, &TwoPortDialog::Apply);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void TwoPortDialog::Browse() {
  const std::string chosen = dialogs_.ChooseOpenFile("Two-port from file", kTwoPortFiles, txtFile->text().toStdString());
  if (!chosen.empty()) txtFile->setText(Q(chosen));
}

TwoPortChoice TwoPortDialog::Choice() const {
  TwoPortChoice choice;
  choice.stage = spnStage->value();
  choice.file = txtFile->text().trimmed().toStdString();
  choice.placement = optSeries->isChecked()  ? BlockPlacement::Series
                     : optShunt->isChecked() ? BlockPlacement::Shunt
                                             : BlockPlacement::Cascade;
  choice.swapped = chkSwapPorts->isChecked();
  choice.port2Shorted = optPort2Shorted->isChecked();
  return choice;
}

void TwoPortDialog::Apply() {
  const TwoPortChoice choice = Choice();
  if (choice.file.empty()) {
    dialogs_.Message("Choose the block's two-port file first.");
    return;
  }
  const std::string problem = PlaceTwoPortBlock(session_, choice);
  if (!problem.empty()) {
    dialogs_.Message(problem);
    return;
  }
  accept();
}

QString TwoPortDialog::AppliedStep() const { return QString("Two-port in stage %1").arg(spnStage->value()); }

}  // namespace kalvex
