#include "design/design_page.h"

#include "files/exit_dialog.h"
#include "files/network_file.h"
#include "files/welcome_pictures.h"

namespace kalvex {

DesignPage::DesignPage(Session& session, Dialogs& dialogs, float coilArcRadius)
    : Page({kDesignPageWidth, kDesignPageHeight}),
      cmdExit(new QPushButton("End", this)),
      session_(session),
      dialogs_(dialogs),
      coilArcRadius_(coilArcRadius) {
  setWindowTitle(QString::fromStdString("Kalvex " + session_.Version + " - Design " +
                                        session_.FileName));
  resize(1220, 920);
  cmdExit->setToolTip("Exit / quit the program");
  Place(cmdExit, 500, 7600, 1400, 300);
  connect(cmdExit, &QPushButton::clicked, this,
          [this] { ExitDialog(session_, dialogs_, this).exec(); });
  stageX_ = DrawDesignPage(session_, Drawing(), coilArcRadius_);
}

void DesignPage::OnUserClose() {
  WriteLastSession(session_, dialogs_);
  EndProgram();
}

}  // namespace kalvex
