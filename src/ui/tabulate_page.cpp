#include "ui/tabulate_page.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>

#include "analysis/tabulate.h"
#include "files/sweep_data_file.h"
#include "print/print_table.h"
#include "ui/controls.h"
#include "ui/band_window.h"
#include "ui/keys.h"
#include "ui/page_menus.h"

namespace kalvex {

TabulatePage::TabulatePage(Session& session, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent),
      lblTitle(new QLabel("Tabulated Data", this)),
      lblHeading0(new QLabel(kTabulateHeading, this)),
      lstTabulatedOutput(new QListWidget(this)),
      cmdExit(Button(this, "Return", "Return to the Analyze page")),
      cmdPrint(Button(this, "To printer", "Send the tabulated dat to the printer")),
      cmdFile(Button(this, "To file", "Send the tabulated data to a file of your choice")),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle(Q("Kalvex " + session_.Version + " Tabulated output " + session_.FileName));
  setModal(true);
  // Sized to the screen; the buttons' font is the screen height in twips × 0.0008 points.
  if (const QScreen* shown = QGuiApplication::primaryScreen()) {
    resize(shown->availableGeometry().size());
    setWindowState(windowState() | Qt::WindowMaximized);
    QFont buttons = cmdExit->font();
    buttons.setPointSizeF(shown->geometry().height() * 15 * 0.0008);
    for (QPushButton* button : {cmdExit, cmdPrint, cmdFile}) button->setFont(buttons);
  }
  const QFont fixedPitch = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  lblHeading0->setFont(fixedPitch);
  lstTabulatedOutput->setFont(fixedPitch);
  QFont title = lblTitle->font();
  title.setPointSizeF(title.pointSizeF() * 1.5);
  lblTitle->setFont(title);
  lblTitle->adjustSize();
  lblTitle->move(Twips(1), Twips(60));
  lblHeading0->adjustSize();
  lblHeading0->move(Twips(1700), Twips(890));
  lstTabulatedOutput->setGeometry(Twips(1700), Twips(1200), Twips(8500), Twips(5000));
  cmdExit->setGeometry(Twips(1940), Twips(6900), Twips(1335), Twips(300));
  cmdPrint->setGeometry(Twips(3440), Twips(6900), Twips(1335), Twips(300));
  cmdFile->setGeometry(Twips(4940), Twips(6900), Twips(1335), Twips(300));

  for (const std::string& row : TabulateSweep(session_)) lstTabulatedOutput->addItem(Q(row));

  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdPrint, &QPushButton::clicked, this, [this] { PrintTable(session_, dialogs_); });
  connect(cmdFile, &QPushButton::clicked, this, &TabulatePage::WriteToFile);
  PageCommands commands;
  commands.print = [this] { cmdPrint->click(); };
  commands.exit = [this] { cmdExit->click(); };
  commands.band = [this] { BandWindow::Show(session_, dialogs_, true); };
  commands.keys = BindKeys(this, dialogs_,
           {{QKeySequence(Qt::CTRL | Qt::Key_P), "To printer", commands.print},
            {QKeySequence(Qt::CTRL | Qt::Key_S), "To file", [this] { cmdFile->click(); }},
            {QKeySequence(Qt::Key_Escape), "Return", commands.exit},
            {QKeySequence(Qt::CTRL | Qt::Key_G), "Band: VSWR against frequency, bandwidths, Bode-Fano bound",
             commands.band}});
  // The menu bar stands above the page, which keeps its layout below it.
  QMenuBar* menus = BuildMenuBar(this, dialogs_, session_.Version, commands);
  menus->setGeometry(0, 0, width(), menus->sizeHint().height());
  for (QWidget* control : std::initializer_list<QWidget*>{lblTitle, lblHeading0, lstTabulatedOutput, cmdExit, cmdPrint, cmdFile}) {
    control->move(control->pos() + QPoint(0, menus->sizeHint().height()));
  }
}

void TabulatePage::WriteToFile() {
  const std::string chosen =
      dialogs_.ChooseSaveFile("Write Kalvex data file", kSweepDataFilter, session_.FileName);
  if (chosen.empty()) return;
  session_.FileName = chosen;
  WriteSweepData(session_, dialogs_, chosen);
}

}  // namespace kalvex
