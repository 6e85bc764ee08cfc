#include "ui/transformer_form.h"

#include <QFormLayout>

#include "ui/controls.h"

namespace kalvex {

double RatioOf(const QString& text) {
  const qsizetype colon = text.indexOf(':');
  const double load = ParseValue(text.left(colon).toStdString());
  const double generator = colon < 0 ? 1 : ParseValue(text.mid(colon + 1).toStdString());
  return generator == 0 ? 0 : load / generator;
}

TransformerForm::TransformerForm(QWidget* parent)
    : StagePartForm(parent),
      cboRatio(new QComboBox(this)),
      txtMagnetising(new QLineEdit(this)),
      txtLeakage(new QLineEdit(this)) {
  cboRatio->setEditable(true);
  cboRatio->addItems({"1:1", "4:1", "9:1", "16:1", "49:1", "64:1"});
  cboRatio->setCurrentIndex(1);
  for (QLineEdit* box : {txtMagnetising, txtLeakage}) box->setPlaceholderText("0 or empty: none");
  auto* form = new QFormLayout(this);
  form->addRow("Ratio N:1 (load side : generator side):", cboRatio);
  form->addRow("Magnetising inductance (H):", txtMagnetising);
  form->addRow("Leakage inductance (H):", txtLeakage);
}

void TransformerForm::Fill(const Session& session, int stage) {
  const auto& v = session.Value[stage];
  cboRatio->setCurrentText(ExactText(v[1]) + ":1");
  txtMagnetising->setText(v[2] > 0 ? Q(Trimmed(FormatInductance(v[2]))) : QString());
  txtLeakage->setText(v[3] > 0 ? Q(Trimmed(FormatInductance(v[3]))) : QString());
}

bool TransformerForm::PutInto(Session& session, Dialogs& dialogs, int stage) const {
  PutFeedPart(session, dialogs, stage, Transformer,
              {0, RatioOf(cboRatio->currentText()), ParseValue(txtMagnetising->text().toStdString()),
               ParseValue(txtLeakage->text().toStdString())});
  return true;
}

}  // namespace kalvex
