#include "ui/options_page.h"

#include "design/schematic.h"
#include "model/options.h"
#include "ui/design_page.h"
#include "ui/keys.h"

namespace kalvex {

OptionsPage::OptionsPage(Session& session, Dialogs& dialogs)
    : Page({12000, 9000}),
      Label1(new QLabel(
          "This is where we will specify the various options; what would you like to specify?",
          this)),
      Frame1(new QGroupBox("Line lengths:", this)),
      Option5(new QRadioButton("degrees", Frame1)),
      Option6(new QRadioButton("wavelengths", Frame1)),
      Option1(new QRadioButton("inches", Frame1)),
      Option2(new QRadioButton("feet", Frame1)),
      Option4(new QRadioButton("meters", Frame1)),
      lblVelocityFactor(new QLabel("Velocity factor:", this)),
      txtVelocityFactor(new QLineEdit(this)),
      lblLoss(new QLabel("Loss:", this)),
      Text1(new QLineEdit(this)),
      lbldB(new QLabel("dB /", this)),
      cmdExit(new QPushButton("Return", this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle(QString::fromStdString("Kalvex " + session_.Version + " - Options setup page"));
  Drawing().Clear(kPageBackground);
  Place(Label1, 200, 100, 9000, 300);
  Place(Frame1, 4000, 500, 2400, 2100);
  // The unit buttons stand one below the other, placed within the frame.
  const int tops[] = {400, 700, 1000, 1300, 1600};
  QRadioButton* units[] = {Option5, Option6, Option1, Option2, Option4};
  for (int i = 0; i < 5; ++i) {
    Place(units[i], 200, tops[i], 2000, 300);
    // Choosing a unit makes the velocity factor available; nothing else.
    connect(units[i], &QRadioButton::toggled, this, [this] {
      lblVelocityFactor->setEnabled(true);
      txtVelocityFactor->setEnabled(true);
    });
  }
  Place(lblVelocityFactor, 4000, 3000, 1600, 300);
  Place(txtVelocityFactor, 5700, 3000, 900, 300);
  Place(lblLoss, 4000, 3500, 1600, 300);
  Place(Text1, 5700, 3500, 900, 300);
  Place(lbldB, 6700, 3500, 600, 300);
  Place(cmdExit, 500, 6920, 1335, 300);
  lblVelocityFactor->setEnabled(false);
  txtVelocityFactor->setEnabled(false);
  Option5->setChecked(true);
  txtVelocityFactor->setText(QString::fromStdString(OpenOptions(session_)));
  connect(cmdExit, &QPushButton::clicked, this, &OptionsPage::Return);
  BindKeys(this, dialogs_,
           {{QKeySequence(Qt::Key_Escape), "Return: keep the velocity factor and go back to the Design page",
             [this] { cmdExit->click(); }}});
  FollowLayoutWithTab();
}

// The close box leaves the page as "Return" does, after the close event: the
// velocity factor's limits are enforced and the Design page comes back.
bool OptionsPage::OnUserClose() {
  QMetaObject::invokeMethod(this, &OptionsPage::Return, Qt::QueuedConnection);
  return false;
}

void OptionsPage::Return() {
  ReturnFromOptions(session_, dialogs_, txtVelocityFactor->text().toStdString());
  SwitchTo(new DesignPage(session_, dialogs_));
}

}  // namespace kalvex
