#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "chart/overlay_settings.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// "Q circle setup" (frmQsetup) and "VSWR circle setup" (frmVSWRsetup): the
// overlay's value, accepted within its range. However it closes, the caller
// switches the overlay on.
class OverlaySetupDialog : public QDialog {
  Q_OBJECT

 public:
  OverlaySetupDialog(Session& session, Dialogs& dialogs, Overlay overlay,
                     QWidget* parent = nullptr);

  QLabel* Label1;
  QLabel* Label2;
  QLineEdit* Text1;
  QPushButton* cmdAccept;
};

}  // namespace kalvex
