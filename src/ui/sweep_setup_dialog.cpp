#include "ui/sweep_setup_dialog.h"

#include "analysis/sweep_settings.h"
#include "model/format.h"
#include "ui/controls.h"

namespace kalvex {

SweepSetupDialog::SweepSetupDialog(Session& session, Dialogs& dialogs,
                                   std::function<void()> settingsEdited,
                                   std::function<void(bool)> sweepSwitchable, QWidget* parent)
    : QDialog(parent),
      Label1(new QLabel("Frequency sweep setup", this)),
      Frame1(new QGroupBox(this)),
      Option1(new QRadioButton("Manual definition below", Frame1)),
      Option2(new QRadioButton("Read frequency and load R+jX data from a file", Frame1)),
      Label2(new QLabel("Starting frequency (Hz):", this)),
      txtStart(new QLineEdit(this)),
      Label3(new QLabel("Stopping frequency (Hz):", this)),
      txtStop(new QLineEdit(this)),
      Label4(new QLabel("Number of points:", this)),
      txtPoints(new QLineEdit(this)),
      Label5(new QLabel("It is best to use an odd number of points; carrier or band-center will "
                        "then be the middle item.",
                        this)),
      cmdAccept(new QPushButton("Accept", this)),
      session_(session),
      dialogs_(dialogs),
      sweepSwitchable_(std::move(sweepSwitchable)) {
  setWindowTitle("Sweep setup");
  setModal(true);
  const double scale = DialogFrame(this);
  setFixedSize(Twips(6000), Twips(4500));
  Label1->setGeometry(Twips(240), Twips(150), Twips(5500), Twips(300));
  Frame1->setGeometry(Twips(240), Twips(540), Twips(5520), Twips(840));
  Option1->setGeometry(Twips(120), Twips(90), Twips(5200), Twips(300));
  Option2->setGeometry(Twips(120), Twips(450), Twips(5200), Twips(300));
  const std::pair<QLabel*, QLineEdit*> rows[] = {
      {Label2, txtStart}, {Label3, txtStop}, {Label4, txtPoints}};
  for (int row = 0; row < 3; ++row) {
    rows[row].first->setGeometry(Twips(240), Twips(1560 + 420 * row), Twips(2800), Twips(300));
    rows[row].second->setGeometry(Twips(3120), Twips(1560 + 420 * row), Twips(2640), Twips(300));
  }
  Label5->setGeometry(Twips(240), Twips(2880), Twips(5520), Twips(600));
  Label5->setWordWrap(true);
  cmdAccept->setGeometry(Twips(2325), Twips(3780), Twips(1350), Twips(330));
  cmdAccept->setDefault(true);
  ScalePlaced(this, scale);

  session_.LoadSource = 1;
  Option1->setChecked(true);
  if (session_.SweepStart > 0) txtStart->setText(Q(FormatSI(session_.SweepStart)));
  if (session_.SweepStop > 0) txtStop->setText(Q(FormatSI(session_.SweepStop)));
  if (session_.SweepPoints > 0) txtPoints->setText(Q(FormatGeneral(session_.SweepPoints)));

  connect(Option1, &QRadioButton::clicked, this, [this] { session_.LoadSource = 1; });
  for (QLineEdit* box : {txtStart, txtStop, txtPoints}) {
    connect(box, &QLineEdit::textChanged, this, [settingsEdited] { settingsEdited(); });
  }
  connect(cmdAccept, &QPushButton::clicked, this, &SweepSetupDialog::Accept);
}

void SweepSetupDialog::Accept() {
  // Frequencies are read without the parser's 10 GHz cap, so that the
  // maximum's message can be told.
  AcceptSweepSettings(session_, dialogs_, ParseValue(txtStart->text().toStdString()),
                      ParseValue(txtStop->text().toStdString()),
                      ParseValue(txtPoints->text().toStdString()),
                      [this](int box, const std::string& text) { (box == 0 ? txtStart : txtStop)->setText(Q(text)); });
  sweepSwitchable_(SweepSettingsSwitchable(session_));
  accept();
}

}  // namespace kalvex
