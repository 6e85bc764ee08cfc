#include "ui/welcome_page.h"

#include "design/symbols.h"
#include "design/welcome_pictures.h"
#include "files/startup.h"
#include "ui/design_page.h"
#include "ui/exit_dialog.h"
#include "ui/keys.h"

namespace kalvex {

WelcomePage::WelcomePage(Session& session, Dialogs& dialogs)
    : Page({kDesignPageWidth, kDesignPageHeight}),
      cmdStart(new QPushButton("Start", this)),
      lblVersion(new QLabel(this)),
      session_(session),
      dialogs_(dialogs) {
  StartSession(session_);
  session_.CoilArcRadius = CoilArcRadiusFor(width(), height());
  setWindowTitle(QString::fromStdString(WelcomeCaption(session_)));

  cmdStart->setToolTip("Start the program");
  Place(cmdStart, 8800, 5700, 1335, 330);
  Place(lblVersion, 1600, 6800, 5000, 330);
  lblVersion->setText(QString::fromStdString("Version " + session_.Version +
                                             " from Brenlow Software"));
  DrawWelcomePage(Drawing(), session_.ChartAspect, session_.CoilArcRadius);
  connect(cmdStart, &QPushButton::clicked, this, &WelcomePage::Start);
  BindKeys(this, dialogs_,
           {{QKeySequence(Qt::Key_Return), "Start", [this] { cmdStart->click(); }},
            {QKeySequence(Qt::Key_Enter), "Start (keypad)", [this] { cmdStart->click(); }}});
}

void WelcomePage::Start() {
  SwitchTo(new DesignPage(session_, dialogs_));
}

// Closing the welcome page ends the program, and every way out saves the
// session, here the one the last-session file gave.
bool WelcomePage::OnUserClose() {
  SaveSessionAndEnd(session_, dialogs_);
  return true;
}

}  // namespace kalvex
