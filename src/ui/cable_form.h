#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "design/network_editor.h"
#include "ui/stage_part_form.h"

namespace kalvex {

// The coaxial cable's page of the stage-part dialog: a cable of the catalogue
// or one "By its numbers" (impedance, velocity factor, k1 and k2 of its
// matched loss in dB per 100 m), and its length in metres or feet, with the
// matched loss this makes at the working frequency.
class CableForm : public StagePartForm {
  Q_OBJECT

 public:
  CableForm(const CableCatalogue& cables, double frequency, QWidget* parent = nullptr);

  QComboBox* cboCable;  // the catalogue's cables, then "By its numbers"
  QLineEdit* txtLength;
  QComboBox* cboLengthUnit;  // "m", "ft"
  QLineEdit* txtImpedance;
  QLineEdit* txtVelocityFactor;
  QLineEdit* txtK1;
  QLineEdit* txtK2;
  QLabel* lblLoss;       // the matched loss at the working frequency
  QLabel* lblCatalogue;  // a catalogue missing, or lines of it left out

  QString KindName() const override { return "Coaxial cable"; }
  QString StepName() const override { return "Cable"; }
  bool Holds(int16_t type) const override { return type == CoaxialCable; }
  void Fill(const Session& session, int stage) override;
  bool PutInto(Session& session, Dialogs& dialogs, int stage) const override;

 private:
  bool ByItsNumbers() const;
  void ShowChosenCable();
  void ConvertLength();
  void ShowLoss();
  StageValues Entered() const;

  const CableCatalogue& cables_;
  double frequency_;
  double metresPerUnit_ = 1;  // of the unit the length box is in
};

}  // namespace kalvex
