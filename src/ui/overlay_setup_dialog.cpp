#include "ui/overlay_setup_dialog.h"

#include "ui/controls.h"

namespace kalvex {

OverlaySetupDialog::OverlaySetupDialog(Session& session, Dialogs& dialogs, Overlay overlay,
                                       QWidget* parent)
    : QDialog(parent),
      Label1(new QLabel(overlay == Overlay::QArcs ? "Q-circle setup" : "VSWR circle setup", this)),
      Label2(new QLabel("Current value:", this)),
      Text1(new QLineEdit(this)),
      cmdAccept(new QPushButton("Accept", this)) {
  setWindowTitle(overlay == Overlay::QArcs ? "Q circle setup" : "VSWR circle setup");
  setModal(true);
  const double scale = DialogFrame(this);
  setFixedSize(Twips(4200), Twips(1900));
  Label1->setGeometry(Twips(240), Twips(150), Twips(3700), Twips(300));
  Label2->setGeometry(Twips(240), Twips(650), Twips(1500), Twips(300));
  Text1->setGeometry(Twips(1800), Twips(630), Twips(1950),
                     Twips(overlay == Overlay::QArcs ? 330 : 300));
  cmdAccept->setGeometry(Twips(2400), Twips(1200), Twips(1350), Twips(330));
  cmdAccept->setDefault(true);
  ScalePlaced(this, scale);
  Text1->setText(Q(OverlaySettingText(session, overlay)));

  connect(cmdAccept, &QPushButton::clicked, this, [this, &session, &dialogs, overlay] {
    if (AcceptOverlaySetting(session, dialogs, overlay, Text1->text().toStdString())) accept();
  });
}

}  // namespace kalvex
