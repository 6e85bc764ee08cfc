#include "ui/stage_part_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/cable_form.h"
#include "ui/controls.h"
#include "ui/transformer_form.h"

namespace kalvex {
namespace {

QString StageText(const Session& session, int stage) {
  const int16_t type = session.ElementType[stage];
  const QString holds = type == Empty               ? QString("empty")
                        : type == InsertPlaceholder ? QString("inserted, waiting for its part")
                                                    : QString(PartName(type));
  return QString("Stage %1 (%2)").arg(stage).arg(holds);
}

// The stage a dialog opened without a selection works on: the first that
// holds no part, else stage 1.
int FirstFreeStage(const Session& session) {
  for (int s = 1; s <= kLastStage; ++s) {
    if (!IsPart(session.ElementType[s])) return s;
  }
  return 1;
}

}  // namespace

StagePartDialog::StagePartDialog(Session& session, Dialogs& dialogs, int stage, QWidget* parent)
    : QDialog(parent),
      cboStage(new QComboBox(this)),
      cboKind(new QComboBox(this)),
      forms(new QStackedWidget(this)),
      cmdApply(new QPushButton("Apply", this)),
      cmdCancel(new QPushButton("Cancel", this)),
      cmdTwoPort(new QPushButton("Two-port from file...", this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle("Cable or transformer");
  setModal(true);
  DialogFrame(this);
  for (int s = 1; s <= kLastStage; ++s) cboStage->addItem(StageText(session, s));
  AddForm(new CableForm(session.Cables, session.Frequency, this));
  AddForm(new TransformerForm(this));

  auto* choices = new QFormLayout;
  choices->addRow("Into:", cboStage);
  choices->addRow("Part:", cboKind);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdTwoPort);
  buttons->addStretch();
  buttons->addWidget(cmdApply);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(choices);
  layout->addWidget(forms);
  layout->addStretch();
  layout->addLayout(buttons);
  cmdApply->setDefault(true);

  connect(cboKind, &QComboBox::currentIndexChanged, forms, &QStackedWidget::setCurrentIndex);
  connect(cboStage, &QComboBox::currentIndexChanged, this, &StagePartDialog::ShowStage);
  connect(cmdApply, &QPushButton::clicked, this, &StagePartDialog::Apply);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdTwoPort, &QPushButton::clicked, this, [this] { done(kTwoPortChosen); });
  cboStage->setCurrentIndex((stage >= 1 && stage <= kLastStage ? stage : FirstFreeStage(session)) - 1);
  ShowStage();
}

void StagePartDialog::AddForm(StagePartForm* form) {
  forms->addWidget(form);
  cboKind->addItem(form->KindName());
}

// A stage that holds one of the kinds shows it, ready to be changed.
void StagePartDialog::ShowStage() {
  for (int k = 0; k < forms->count(); ++k) {
    auto* form = static_cast<StagePartForm*>(forms->widget(k));
    if (!form->Holds(session_.ElementType[Stage()])) continue;
    form->Fill(session_, Stage());
    cboKind->setCurrentIndex(k);
  }
}

void StagePartDialog::Apply() {
  if (!Form()->PutInto(session_, dialogs_, Stage())) return;
  appliedStep_ = QString("%1 in stage %2").arg(Form()->StepName()).arg(Stage());
  accept();
}

}  // namespace kalvex
