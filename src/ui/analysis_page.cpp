#include "ui/analysis_page.h"

#include <algorithm>

#include "analysis/network_listing.h"
#include "analysis/sweep_settings.h"
#include "chart/analysis_view.h"
#include "chart/readout.h"
#include "files/defaults_file.h"
#include "files/field_reader.h"
#include "files/network_file.h"
#include "print/print_chart.h"
#include "ui/controls.h"
#include "ui/design_page.h"
#include "ui/exit_dialog.h"
#include "ui/band_window.h"
#include "ui/keys.h"
#include "ui/live_load_window.h"
#include "ui/page_menus.h"
#include "ui/session_history.h"
#include "model/format.h"
#include "model/network_state.h"
#include "ui/match_dialog.h"
#include "ui/optimise_dialog.h"
#include "ui/page_renderer.h"
#include "ui/overlay_setup_dialog.h"
#include "ui/sweep_setup_dialog.h"
#include "ui/tabulate_page.h"

namespace kalvex {
namespace {

QLabel* ColouredLabel(QWidget* page, const char* text, const char* background) {
  auto* label = new QLabel(text, page);
  label->setStyleSheet(QString("background: %1;").arg(background));
  return label;
}

struct ReadoutColumn {
  const char* caption;
  double left;
  double width;
};
constexpr ReadoutColumn kReadoutColumns[] = {
    {" Rho:", 3360, 2000}, {" VSWR:", 5360, 1200}, {" R.L:", 6480, 1200}, {" R:", 7680, 1000},
    {" jX:", 8600, 1000},  {" G:", 9600, 1000},    {" jB:", 10600, 1000}};

}  // namespace

AnalysisPage::AnalysisPage(Session& session, Dialogs& dialogs)
    : Page({kAnalysisPageWidth, kAnalysisPageHeight}),
      cmdDesign(Button(this, "Design", "Go to the Design page")),
      cmdIn(Button(this, "In", "Zoom in on the chart")),
      cmdOut(Button(this, "Out", "Zoom out on the chart")),
      cmdReset(Button(this, "Size reset", "Reset the chart position and size")),
      cmdDisplay(Button(this, "Grid type", "Step through the various grid types")),
      cmdExit(Button(this, "End", "Exit/quit the program")),
      cmdQsetup(Button(this, "Q setup", "Enter data to set Q arc size")),
      cmdQon(Button(this, "On/off", "Toggle Q arcs on / off")),
      cmdVSWRsetup(Button(this, "VSWR setup", "Enter data to set VSWR circle size")),
      cmdVSWRon(Button(this, "On/off", "Toggle VSWR circle on / off")),
      cmdSweepSetup(Button(this, "Sweep setup", "Enter data to do a frequency sweep")),
      cmdSweep(Button(this, "On/off", "Do the frequency sweep")),
      cmdTabulate(Button(this, "Tabulate", "Send frequency sweep data to Tabulate page")),
      cmdPrint(Button(this, "Print", "Send chart and network to printer")),
      lblRightClick(
          new QLabel("Left-click on chart for info; right button drag and drop chart", this)),
      lblAspect(ColouredLabel(this, "Aspect:", "rgb(255, 192, 192)")),
      txtAspect(new QLineEdit(this)),
      txtAspectEntry(new QLineEdit(this)),
      UpDown1Up(new QToolButton(this)),
      UpDown1Down(new QToolButton(this)),
      lblClickPart(new QLabel("Click on a part to tune or edit it", this)),
      tuning(new TuningControls(*this, session, dialogs, [this] { Redraw(); })),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle(QString::fromStdString(AnalysisCaption(session_)));
  Place(cmdDesign, 500, 5500, 1400, 300);
  Place(cmdIn, 500, 5850, 675, 300);
  Place(cmdOut, 1225, 5850, 675, 300);
  Place(cmdReset, 500, 6200, 1400, 300);
  Place(cmdDisplay, 500, 6550, 1400, 300);
  Place(cmdExit, 500, 7250, 1400, 300);
  Place(cmdQsetup, 1940, 5500, 1335, 300);
  Place(cmdQon, 3315, 5500, 770, 300);
  Place(cmdVSWRsetup, 1940, 5850, 1335, 300);
  Place(cmdVSWRon, 3315, 5850, 770, 300);
  Place(cmdSweepSetup, 1940, 6200, 1335, 300);
  Place(cmdSweep, 3315, 6200, 770, 300);
  Place(cmdTabulate, 1940, 6550, 1050, 300);
  Place(cmdPrint, 3040, 6550, 1050, 300);
  Place(lblRightClick, 500, 7630, 4800, 300);
  Place(lblAspect, 500, 8140, 700, 200);
  Place(txtAspect, 1200, 8140, 400, 200);
  Place(txtAspectEntry, 2000, 8140, 400, 200);
  Place(UpDown1Up, 2400, 8140, 150, 100);
  Place(UpDown1Down, 2400, 8240, 150, 100);
  UpDown1Up->setArrowType(Qt::UpArrow);
  UpDown1Down->setArrowType(Qt::DownArrow);
  for (QPushButton* button : {cmdDesign, cmdIn, cmdOut, cmdReset, cmdDisplay, cmdExit, cmdQsetup,
                               cmdQon, cmdVSWRsetup, cmdVSWRon, cmdSweepSetup, cmdSweep,
                               cmdTabulate, cmdPrint}) {
    SetBackground(button, session_.AnalysisControlColour);
  }
  // Tabulate keeps its default enabled state at load: only an edit in the
  // sweep setup, or a sweep whose settings are not usable, disables it.
  for (std::size_t i = 0; i < std::size(kReadoutColumns); ++i) {
    const ReadoutColumn& column = kReadoutColumns[i];
    readoutCaptions[i] = ColouredLabel(this, column.caption, "rgb(187, 221, 255)");
    readoutValues[i] = ColouredLabel(this, "", "white");
    Place(readoutCaptions[i], column.left, 120, column.width, 300);
    Place(readoutValues[i], column.left, 390, column.width, 300);
  }
  HideReadout();
  Place(lblClickPart, 3400, 1800, 2300, 300);
  lblClickPart->hide();

  connect(cmdIn, &QPushButton::clicked, this, [this] {
    ShowZoomButtons(ZoomIn(session_));
    Redraw();
  });
  connect(cmdOut, &QPushButton::clicked, this, [this] {
    ShowZoomButtons(ZoomOut(session_));
    Redraw();
  });
  connect(cmdReset, &QPushButton::clicked, this, [this] {
    ShowZoomButtons(ResetView(session_));
    Redraw();
  });
  connect(cmdDisplay, &QPushButton::clicked, this, [this] {
    StepGridType(session_);
    Redraw();
  });
  connect(cmdQon, &QPushButton::clicked, this, [this] {
    ToggleOverlay(session_, Overlay::QArcs);
    Redraw();
  });
  connect(cmdVSWRon, &QPushButton::clicked, this, [this] {
    ToggleOverlay(session_, Overlay::VSWRCircle);
    Redraw();
  });
  connect(cmdQsetup, &QPushButton::clicked, this, [this] { SetUpOverlay(Overlay::QArcs); });
  connect(cmdVSWRsetup, &QPushButton::clicked, this,
          [this] { SetUpOverlay(Overlay::VSWRCircle); });
  connect(cmdSweepSetup, &QPushButton::clicked, this, &AnalysisPage::OpenSweepSetup);
  connect(cmdSweep, &QPushButton::clicked, this, [this] {
    ToggleSwitch(session_.SweepShown);
    Redraw();
  });
  connect(cmdTabulate, &QPushButton::clicked, this,
          [this] { TabulatePage(session_, dialogs_, this).exec(); });
  connect(cmdPrint, &QPushButton::clicked, this, [this] { PrintChart(session_, dialogs_); });
  connect(cmdDesign, &QPushButton::clicked, this, &AnalysisPage::GoToDesignPage);
  PageCommands commands;
  commands.saveNet = [this] { SaveNetworkAs(session_, dialogs_); };
  commands.exportImage = [this] { ExportImage(dialogs_, "Export chart image", kAnalysisPage); };
  commands.print = [this] { cmdPrint->click(); };
  commands.exit = [this] { cmdExit->click(); };
  commands.undoable = true;
  FollowHistory();
  commands.zoomIn = [this] { cmdIn->click(); };
  commands.zoomOut = [this] { cmdOut->click(); };
  commands.gridType = [this] { cmdDisplay->click(); };
  commands.qArcs = [this] { cmdQon->click(); };
  commands.vswrCircle = [this] { cmdVSWRon->click(); };
  commands.sweep = [this] { if (cmdSweep->isEnabled()) cmdSweep->click(); };
  commands.band = [this] { BandWindow::Show(session_, dialogs_); };
  commands.liveLoad = [this] { LiveLoadWindow::Show(session_, dialogs_); };
  // A sweep moves the working frequency only when its points change; the box
  // follows then, and is left alone while the user types in it otherwise.
  LiveLoadWindow::Follow(this, [this, shown = session_.Frequency]() mutable {
    if (session_.Frequency != shown) tuning->txtFreq->setText(Q(FormatSI(shown = session_.Frequency)));
    Redraw();
  });
  commands.match = [this] {
    MatchDialog dialog(session_, dialogs_, this);
    if (dialog.exec() == QDialog::Accepted) ShowApplied(dialog.AppliedStep());
  };
  commands.optimise = [this] {
    OptimiseDialog dialog(session_, this);
    if (dialog.exec() == QDialog::Accepted) ShowApplied(dialog.AppliedStep());
  };
  std::vector<Key> keys = {
      {QKeySequence(Qt::CTRL | Qt::Key_S), "Save net", commands.saveNet},
      {QKeySequence(Qt::CTRL | Qt::Key_P), "Print", commands.print},
      {QKeySequence(Qt::CTRL | Qt::Key_E), "Export the chart as PNG, SVG or PDF", commands.exportImage},
      {QKeySequence(Qt::Key_Plus), "Zoom in", commands.zoomIn},
      {QKeySequence(Qt::Key_Minus), "Zoom out", commands.zoomOut},
      {QKeySequence(Qt::CTRL | Qt::Key_G), "Band: VSWR against frequency, bandwidths, Bode-Fano bound",
       commands.band},
      {QKeySequence(Qt::CTRL | Qt::Key_T), "Optimise: tune the chosen parts for the best match over the band",
       commands.optimise},
      {QKeySequence(Qt::CTRL | Qt::Key_M), "Match: compute a matching network for the load", commands.match},
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L), "Live load: read the load from a vector network analyser",
       commands.liveLoad}};
  for (Key& key : HistoryKeys(this)) keys.push_back(std::move(key));
  commands.keys = BindKeys(this, dialogs_, std::move(keys));
  SetMenuBar(BuildMenuBar(this, dialogs_, session_.Version, commands));
  SetStatusLine(new QLabel(this));
  connect(cmdExit, &QPushButton::clicked, this,
          [this] { ExitDialog(session_, dialogs_, this).exec(); });
  // A typed factor counts once the user presses Enter or leaves the box, so
  // that ".75" can be typed; a text the program sets counts at once.
  connect(txtAspect, &QLineEdit::editingFinished, this, [this] { AspectEntered(txtAspect->text()); });
  connect(UpDown1Up, &QToolButton::clicked, this, [this] { StepAspect(1); });
  connect(UpDown1Down, &QToolButton::clicked, this, [this] { StepAspect(-1); });

  // The page's load: every visit starts with zoom in offered and zoom out not.
  ShowZoomButtons({true, false});
  cmdSweep->setEnabled(SweepSettingsUsable(session_));
  LoadAnalysisView(session_);
  const AspectTexts texts = AspectBoxTexts(session_.ChartAspect);
  txtAspectEntry->setText(QString::fromStdString(texts.percent));
  SetAspectText(QString::fromStdString(texts.factor));
  FollowLayoutWithTab();
  Redraw();
}

void AnalysisPage::SetAspectText(const QString& text) {
  if (txtAspect->text() == text) return;
  txtAspect->setText(text);
  AspectEntered(text);
}

// Every change ends here: the strip and the whole chart drawn again, and the
// switches' buttons showing their state.
void AnalysisPage::Redraw() {
  RefreshAnalysis(session_, Drawing());
  if (session_.Frequency > 0) lblClickPart->setVisible(AnyPartShown(session_));
  if (session_.SweepShown != 0) cmdTabulate->setEnabled(SweepSettingsUsable(session_));
  ShowSwitch(cmdQon, OverlayOn(session_, Overlay::QArcs));
  ShowSwitch(cmdVSWRon, OverlayOn(session_, Overlay::VSWRCircle));
  ShowSwitch(cmdSweep, session_.SweepShown == 1);
  update();
  const QString live = LiveLoadWindow::StatusText();
  ShowStatus(Q(MatchStatusText(session_)) + live, Q(MatchStatusText(session_, StatusForm::Brief)) + live);
  BandWindow::RefreshOpen();
}

void AnalysisPage::ShowSwitch(QPushButton* button, bool on) {
  SetBackground(button, on ? kOnColour : session_.AnalysisControlColour);
}

// However the dialog closes, its overlay is switched on.
void AnalysisPage::SetUpOverlay(Overlay overlay) {
  OverlaySetupDialog(session_, dialogs_, overlay, this).exec();
  SwitchOnOverlay(session_, overlay);
  Redraw();
}

void AnalysisPage::OpenSweepSetup() {
  SweepSetupDialog(
      session_, dialogs_, [this] { cmdTabulate->setEnabled(false); },
      [this](bool switchable) { cmdSweep->setEnabled(switchable); }, this)
      .exec();
  RecordStep("Sweep setup");
  if (!SweepDefined(session_)) return;
  session_.SweepShown = 1;
  Redraw();
}

void AnalysisPage::ShowZoomButtons(ZoomButtons buttons) {
  cmdIn->setEnabled(buttons.inEnabled);
  cmdOut->setEnabled(buttons.outEnabled);
}

void AnalysisPage::AspectEntered(const QString& text) {
  const AspectTexts reset = AspectFactorEntered(session_, text.toStdString());
  if (!reset.factor.empty()) {
    txtAspect->setText(QString::fromStdString(reset.factor));
    txtAspectEntry->setText(QString::fromStdString(reset.percent));
  }
  WriteDefaults(session_);
  Redraw();
}

// The spinner: its box's number moves by one within 50..150, then the factor
// follows.
void AnalysisPage::StepAspect(int percent) {
  const double current = FieldNumber(txtAspectEntry->text().toStdString()).value;
  const double stepped = std::clamp(current + percent, 50.0, 150.0);
  txtAspectEntry->setText(QString::number(static_cast<int>(stepped)));
  SetAspectText(
      QString::fromStdString(AspectPercentStepped(session_, txtAspectEntry->text().toStdString())));
  WriteDefaults(session_);
  Redraw();
}

void AnalysisPage::OnMouseDown(int button, double x, double y) {
  if (y < kStripBottom && x < session_.PartRightEdge[5]) {
    const int cell = PartAt(session_, x);
    if (cell >= 0) tuning->SelectCell(cell);
  }
  if (!(y > kStripBottom)) return;
  if (button == 1) ShowReadout(x, y);
  if (button == 2) drag_.Press(x, y);
}

void AnalysisPage::OnMouseMove(int button, double x, double y) {
  if (button == 1) ShowReadout(x, y);
  if (button == 2 && drag_.Move(session_, x, y)) Redraw();
}

void AnalysisPage::OnMouseUp(int, double, double) { HideReadout(); }

void AnalysisPage::ShowReadout(double x, double y) {
  const Readout readout = ReadoutAt(session_, x, y);
  const std::string* texts[] = {&readout.rho,        &readout.vswr,      &readout.returnLoss,
                                &readout.resistance, &readout.reactance, &readout.conductance,
                                &readout.susceptance};
  for (std::size_t i = 0; i < readoutValues.size(); ++i) {
    readoutValues[i]->setText(QString::fromStdString(*texts[i]));
    readoutValues[i]->setVisible(readout.inside);
    readoutCaptions[i]->setVisible(readout.inside);
  }
}

void AnalysisPage::HideReadout() {
  for (QLabel* label : readoutCaptions) label->hide();
  for (QLabel* label : readoutValues) label->hide();
}

void AnalysisPage::GoToDesignPage() {
  SwitchTo(new DesignPage(session_, dialogs_));
}

// The restored network and operating point in the view as it stands: the
// zoom, the drag, the aspect, the grid, the overlays and the selected part
// stay as they were.
void AnalysisPage::Reload() {
  tuning->ShowSession();
  cmdSweep->setEnabled(SweepSettingsUsable(session_));
  Redraw();
}

// A network a dialog applied is one step, shown as an undo shows one: in the
// view as it stands.
void AnalysisPage::ShowApplied(const QString& step) {
  RecordStep(step);
  Reload();
}

bool AnalysisPage::OnUserClose() {
  SaveSessionAndEnd(session_, dialogs_);
  return true;
}

}  // namespace kalvex
