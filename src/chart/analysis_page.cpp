#include "chart/analysis_page.h"

#include "design/design_page.h"
#include "design/schematic.h"
#include "files/exit_dialog.h"
#include "files/network_file.h"

namespace kalvex {

AnalysisPage::AnalysisPage(Session& session, Dialogs& dialogs)
    : Page({kAnalysisPageWidth, kAnalysisPageHeight}),
      cmdDesign(new QPushButton("Design", this)),
      cmdExit(new QPushButton("End", this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle(QString::fromStdString("Kalvex " + session_.Version + " - Analysis  " +
                                        session_.FileName));
  resize(1200, 900);
  cmdDesign->setToolTip("Go to the Design page");
  cmdExit->setToolTip("Exit/quit the program");
  Place(cmdDesign, 500, 5500, 1400, 300);
  Place(cmdExit, 500, 7250, 1400, 300);
  Drawing().Clear(kPageBackground);

  connect(cmdDesign, &QPushButton::clicked, this, [this] {
    auto* design = new DesignPage(session_, dialogs_);
    design->setAttribute(Qt::WA_DeleteOnClose);
    design->show();
    setAttribute(Qt::WA_DeleteOnClose);
    CloseByProgram();
  });
  connect(cmdExit, &QPushButton::clicked, this,
          [this] { ExitDialog(session_, dialogs_, this).exec(); });
}

void AnalysisPage::OnUserClose() {
  WriteLastSession(session_, dialogs_);
  EndProgram();
}

}  // namespace kalvex
