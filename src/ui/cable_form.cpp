#include "ui/cable_form.h"

#include <QFormLayout>
#include <QHBoxLayout>

#include "model/feed_parts.h"
#include "ui/controls.h"

namespace kalvex {
namespace {

constexpr double kMetresPerFoot = 0.3048;

QString CatalogueNote(const CableCatalogue& cables) {
  if (cables.cables.empty() && cables.problems.empty()) {
    return "No cable catalogue was found beside the program: enter the cable by its numbers.";
  }
  QStringList lines;
  for (const std::string& problem : cables.problems) lines << "Cable catalogue: " + Q(problem);
  return lines.join("\n");
}

}  // namespace

CableForm::CableForm(const CableCatalogue& cables, double frequency, QWidget* parent)
    : StagePartForm(parent),
      cboCable(new QComboBox(this)),
      txtLength(new QLineEdit(this)),
      cboLengthUnit(new QComboBox(this)),
      txtImpedance(new QLineEdit(this)),
      txtVelocityFactor(new QLineEdit(this)),
      txtK1(new QLineEdit(this)),
      txtK2(new QLineEdit(this)),
      lblLoss(new QLabel(this)),
      lblCatalogue(new QLabel(CatalogueNote(cables), this)),
      cables_(cables),
      frequency_(frequency) {
  for (const CatalogueCable& cable : cables.cables) cboCable->addItem(Q(cable.name));
  cboCable->addItem("By its numbers");
  cboLengthUnit->addItems({"m", "ft"});
  lblCatalogue->setWordWrap(true);
  lblCatalogue->setVisible(!lblCatalogue->text().isEmpty());

  auto* length = new QHBoxLayout;
  length->addWidget(txtLength, 1);
  length->addWidget(cboLengthUnit);
  auto* form = new QFormLayout(this);
  form->addRow("Cable:", cboCable);
  form->addRow("Length:", length);
  form->addRow("Impedance (ohms):", txtImpedance);
  form->addRow("Velocity factor:", txtVelocityFactor);
  form->addRow("k1 (dB/100 m):", txtK1);
  form->addRow("k2 (dB/100 m):", txtK2);
  form->addRow(new QLabel("Matched loss k1 \u00b7 \u221a(f / 1 MHz) + k2 \u00b7 f / 1 MHz dB per 100 m", this));
  form->addRow(lblLoss);
  form->addRow(lblCatalogue);

  connect(cboCable, &QComboBox::currentIndexChanged, this, &CableForm::ShowChosenCable);
  connect(cboLengthUnit, &QComboBox::currentIndexChanged, this, &CableForm::ConvertLength);
  for (QLineEdit* box : {txtLength, txtImpedance, txtVelocityFactor, txtK1, txtK2}) {
    connect(box, &QLineEdit::textChanged, this, &CableForm::ShowLoss);
  }
  ShowChosenCable();
}

bool CableForm::ByItsNumbers() const { return cboCable->currentIndex() >= static_cast<int>(cables_.cables.size()); }

// A catalogue cable shows its numbers, which only a cable by its numbers edits.
void CableForm::ShowChosenCable() {
  const bool own = ByItsNumbers();
  if (!own) {
    const CatalogueCable& cable = cables_.cables[static_cast<std::size_t>(cboCable->currentIndex())];
    txtImpedance->setText(ExactText(cable.characteristicZ));
    txtVelocityFactor->setText(ExactText(cable.velocityFactor));
    txtK1->setText(ExactText(cable.k1));
    txtK2->setText(ExactText(cable.k2));
  }
  for (QLineEdit* box : {txtImpedance, txtVelocityFactor, txtK1, txtK2}) box->setEnabled(own);
  ShowLoss();
}

// The length keeps its measure when its unit changes.
void CableForm::ConvertLength() {
  const double metresPerUnit = cboLengthUnit->currentIndex() == 1 ? kMetresPerFoot : 1;
  if (!txtLength->text().trimmed().isEmpty()) {
    txtLength->setText(ExactText(ParseValue(txtLength->text().toStdString()) * metresPerUnit_ / metresPerUnit));
  }
  metresPerUnit_ = metresPerUnit;
}

void CableForm::ShowLoss() {
  const StageValues v = Entered();
  const CableSlots cable{v[1], v[2], v[3], v[4], v[5]};
  lblLoss->setText(QString("Matched loss at %1: %2 dB")
                       .arg(HzText(frequency_), QString::number(CableMatchedLossDb(cable, frequency_), 'f', 2)));
}

StageValues CableForm::Entered() const {
  auto read = [](const QLineEdit* box) { return ParseValue(box->text().toStdString()); };
  return {0, read(txtLength) * metresPerUnit_, read(txtImpedance), read(txtVelocityFactor), read(txtK1), read(txtK2)};
}

void CableForm::Fill(const Session& session, int stage) {
  const auto& v = session.Value[stage];
  cboLengthUnit->setCurrentIndex(0);
  txtLength->setText(ExactText(v[1]));
  const CatalogueCable* named = CatalogueCableOf(cables_, CableOf(v));
  cboCable->setCurrentIndex(named != nullptr ? static_cast<int>(named - cables_.cables.data())
                                             : static_cast<int>(cables_.cables.size()));
  if (named == nullptr) {
    txtImpedance->setText(ExactText(v[2]));
    txtVelocityFactor->setText(ExactText(v[3]));
    txtK1->setText(ExactText(v[4]));
    txtK2->setText(ExactText(v[5]));
  }
}

bool CableForm::PutInto(Session& session, Dialogs& dialogs, int stage) const {
  PutFeedPart(session, dialogs, stage, CoaxialCable, Entered());
  return true;
}

}  // namespace kalvex
