#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>

#include "design/two_port_stage.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// "Two-port from file...": a stage, a two-port Touchstone file (version 1
// .s2p or version 2), and how the block sits in the line (cascade, series,
// or shunt with port 2 shorted or open; ports swapped). OK reads the file and
// puts the block into the stage; a file that cannot be a block is named in a
// message and the dialog stays open.
class TwoPortDialog : public QDialog {
  Q_OBJECT

 public:
  // `stage` 1..5, or any other number for the first free stage.
  TwoPortDialog(Session& session, Dialogs& dialogs, int stage = 0, QWidget* parent = nullptr);

  // The undo step's name once the block went in: "Two-port in stage 2".
  QString AppliedStep() const;

  QSpinBox* spnStage;
  QLineEdit* txtFile;
  QRadioButton* optCascade;
  QRadioButton* optSeries;
  QRadioButton* optShunt;
  QRadioButton* optPort2Open;
  QRadioButton* optPort2Shorted;
  QCheckBox* chkSwapPorts;

 private:
  void Browse();
  void Apply();
  TwoPortChoice Choice() const;

  Session& session_;
  Dialogs& dialogs_;
};

}  // namespace kalvex
