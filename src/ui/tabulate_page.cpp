#include "ui/tabulate_page.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

#include "analysis/tabulate.h"
#include "files/network_two_port_text.h"
#include "files/sweep_data_file.h"
#include "print/print_table.h"
#include "ui/controls.h"
#include "ui/band_window.h"
#include "ui/keys.h"
#include "ui/page_menus.h"

namespace kalvex {

TabulatePage::TabulatePage(Session& session, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent),
      sheet(new Page({kAnalysisPageWidth, kAnalysisPageHeight}, this)),
      lblTitle(new QLabel("Tabulated Data", sheet)),
      lblHeading0(new QLabel(kTabulateHeading, sheet)),
      lstTabulatedOutput(new QListWidget(sheet)),
      cmdExit(Button(sheet, "Return", "Return to the Analyze page")),
      cmdPrint(Button(sheet, "To printer", "Send the tabulated dat to the printer")),
      cmdFile(Button(sheet, "To file", "Send the tabulated data to a file of your choice")),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle(Q("Kalvex " + session_.Version + " Tabulated output " + session_.FileName));
  setModal(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(sheet);
  sheet->Drawing().Clear(kPageBackground);
  if (const QScreen* shown = QGuiApplication::primaryScreen()) {
    resize(shown->availableGeometry().size());
    setWindowState(windowState() | Qt::WindowMaximized);
  }
  const QFont fixedPitch = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  lblHeading0->setFont(fixedPitch);
  lstTabulatedOutput->setFont(fixedPitch);
  // The heading stands over the rows' columns: indented by the list's frame
  // and its rows' margin.
  lblHeading0->setIndent(lstTabulatedOutput->frameWidth() + 2);
  sheet->Place(lblTitle, 1, 60, 4000, 400);
  sheet->Place(lblHeading0, 1700, 890, 8500, 300);
  sheet->Place(lstTabulatedOutput, 1700, 1200, 8500, 5000);
  sheet->Place(cmdExit, 1940, 6900, 1335, 300);
  sheet->Place(cmdPrint, 3440, 6900, 1335, 300);
  sheet->Place(cmdFile, 4940, 6900, 1335, 300);

  for (const std::string& row : TabulateSweep(session_)) lstTabulatedOutput->addItem(Q(row));

  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdPrint, &QPushButton::clicked, this, [this] { PrintTable(session_, dialogs_); });
  connect(cmdFile, &QPushButton::clicked, this, &TabulatePage::WriteToFile);
  PageCommands commands;
  commands.print = [this] { cmdPrint->click(); };
  commands.exit = [this] { cmdExit->click(); };
  commands.band = [this] { BandWindow::Show(session_, dialogs_, true); };
  commands.saveTwoPort = [this] { SaveTwoPort(); };
  commands.keys = BindKeys(this, dialogs_,
           {{QKeySequence(Qt::CTRL | Qt::Key_P), "To printer", commands.print},
            {QKeySequence(Qt::CTRL | Qt::Key_S), "To file", [this] { cmdFile->click(); }},
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
             "Save as two-port: the network without its load as a .s2p over the sweep", commands.saveTwoPort},
            {QKeySequence(Qt::Key_Escape), "Return", commands.exit},
            {QKeySequence(Qt::CTRL | Qt::Key_G), "Band: VSWR against frequency, bandwidths, Bode-Fano bound",
             commands.band}});
  sheet->SetMenuBar(BuildMenuBar(sheet, dialogs_, session_.Version, commands));
  sheet->FollowLayoutWithTab();
}

void TabulatePage::WriteToFile() {
  const std::string chosen =
      dialogs_.ChooseSaveFile("Write Kalvex data file", kSweepDataFilter, session_.FileName);
  if (chosen.empty()) return;
  session_.FileName = chosen;
  WriteSweepData(session_, dialogs_, chosen);
}

void TabulatePage::SaveTwoPort() {
  const std::string chosen = dialogs_.ChooseSaveFile("Save as two-port", kTwoPortFilter, session_.FileName);
  if (chosen.empty()) return;
  if (const std::string problem = WriteNetworkTwoPort(session_, dialogs_, chosen); !problem.empty()) {
    dialogs_.Message("The two-port file was not written: " + problem);
  }
}

}  // namespace kalvex
