#pragma once

#include <QComboBox>
#include <QLineEdit>

#include "ui/stage_part_form.h"

namespace kalvex {

// The transformer's page of the stage-part dialog: its ratio N:1 from the
// load side to the generator side, chosen from the usual ones or typed, and
// its magnetising and leakage inductances (0 or empty: none).
class TransformerForm : public StagePartForm {
  Q_OBJECT

 public:
  explicit TransformerForm(QWidget* parent = nullptr);

  QComboBox* cboRatio;  // editable: "1:1" ... "64:1", or any N, "N:1" or "A:B"
  QLineEdit* txtMagnetising;
  QLineEdit* txtLeakage;

  QString KindName() const override { return "Transformer"; }
  QString StepName() const override { return "Transformer"; }
  bool Holds(int16_t type) const override { return type == Transformer; }
  void Fill(const Session& session, int stage) override;
  bool PutInto(Session& session, Dialogs& dialogs, int stage) const override;
};

// The ratio N of a ratio's text: "49:1" and "49" give 49, "1:4" gives 0.25;
// 0 when it cannot be read.
double RatioOf(const QString& text);

}  // namespace kalvex
