#include "ui/band_window.h"

#include <QHeaderView>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <tuple>

#include "matching/yield_plot.h"
#include "model/format.h"
#include "ui/controls.h"
#include "ui/keys.h"

namespace kalvex {
namespace {

QPointer<BandWindow> openWindow;

// As kalvex-cli yield takes them: each sample keeps its VSWR at every point.
constexpr int kMostSamples = 100'000;
constexpr double kHighestTolerance = 99;

// The controls sit in the figures' column, below its text.
constexpr double kControlsLeft = 8100;
constexpr double kControlsTop = kYieldFiguresBottom;
constexpr double kRowHeight = 330;
constexpr double kRowStep = 400;

bool SameParts(const std::vector<NetworkPart>& a, const std::vector<NetworkPart>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const NetworkPart& x, const NetworkPart& y) {
    return x.stage == y.stage && x.slot == y.slot && x.kind == y.kind;
  });
}

QString Figure(double value) { return QString::number(value, 'g', 6); }

}  // namespace

YieldRequest& BandWindow::YieldSettings() {
  static YieldRequest settings;
  return settings;
}

BandWindow* BandWindow::Show(const Session& session, Dialogs& dialogs, bool modal) {
  if (openWindow.isNull()) {
    openWindow = new BandWindow(session, dialogs);
    openWindow->setAttribute(Qt::WA_DeleteOnClose);
  }
  openWindow->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  openWindow->Refresh();
  openWindow->show();
  openWindow->raise();
  return openWindow;
}

void BandWindow::RefreshOpen() {
  if (!openWindow.isNull()) openWindow->Refresh();
}

BandWindow::BandWindow(const Session& session, Dialogs& dialogs)
    : Page({kBandPage.width, kBandPage.height}),
      lblGoal(new QLabel("Goal VSWR", this)),
      txtGoal(new QLineEdit(this)),
      lblSamples(new QLabel("Samples", this)),
      txtSamples(new QLineEdit(this)),
      lblSpread(new QLabel("Spread", this)),
      cboSpread(new QComboBox(this)),
      lblSeed(new QLabel("Seed", this)),
      txtSeed(new QLineEdit(this)),
      tblTolerances(new QTableWidget(this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle("Band");
  KeepOwnProportions();
  PlaceYieldControls();
  BindKeys(this, dialogs_,
           {{QKeySequence(Qt::Key_V), "VSWR against frequency", [this] { Show(BandQuantity::VSWR); }},
            {QKeySequence(Qt::Key_R), "Return loss against frequency",
             [this] { Show(BandQuantity::ReturnLoss); }},
            {QKeySequence(Qt::Key_G), "|Gamma| against frequency", [this] { Show(BandQuantity::Gamma); }},
            {QKeySequence(Qt::Key_Y), "Yield: networks built from parts within their tolerances, with each "
                                      "part's share of the spread",
             [this] { ShowYield(); }},
            {QKeySequence(Qt::Key_L), "The load fixed (R + jX at every frequency) or fitted (R with the C or L of X)",
             [this] { Show(loadModel_ == LoadModel::Fixed ? LoadModel::Fitted : LoadModel::Fixed); }},
            {QKeySequence(Qt::CTRL | Qt::Key_E), "Export the plot (or the yield) as PNG, SVG or PDF",
             [this] {
               if (yieldShown_) WaitForYield();
               ExportImage(dialogs_, "Export band plot", kBandPage);
             }},
            {QKeySequence(Qt::CTRL | Qt::Key_P), "Print the plot (or the yield)", [this] { Print(); }}});
}

void BandWindow::PlaceYieldControls() {
  const YieldRequest& settings = YieldSettings();
  txtGoal->setText(Figure(settings.goal));
  txtSamples->setText(QString::number(settings.samples));
  txtSeed->setText(QString::number(settings.seed));
  cboSpread->addItems({"uniform", "normal"});
  cboSpread->setCurrentIndex(settings.spread == Spread::Uniform ? 0 : 1);
  cboSpread->setToolTip("Each part evenly within its tolerance, or normally with the tolerance at 3 sigma (and never beyond it)");
  tblTolerances->setColumnCount(3);
  tblTolerances->setHorizontalHeaderLabels({"Stage", "Part", "+/- %"});
  tblTolerances->verticalHeader()->hide();
  // Rows as tall as the window's font, which follows the window's size.
  tblTolerances->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  tblTolerances->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  tblTolerances->setToolTip("Each part's tolerance: C 5 %, L 5 %, R 1 % and lines and stubs 2 % of their length "
                            "unless changed here; a part of 0 % is built exact");
  const double top = kControlsTop;
  Place(lblGoal, kControlsLeft, top, 900, kRowHeight);
  Place(txtGoal, kControlsLeft + 900, top, 800, kRowHeight);
  Place(lblSamples, kControlsLeft + 1900, top, 850, kRowHeight);
  Place(txtSamples, kControlsLeft + 2750, top, 1000, kRowHeight);
  Place(lblSpread, kControlsLeft, top + kRowStep, 900, kRowHeight);
  Place(cboSpread, kControlsLeft + 900, top + kRowStep, 1300, kRowHeight);
  Place(lblSeed, kControlsLeft + 2300, top + kRowStep, 450, kRowHeight);
  Place(txtSeed, kControlsLeft + 2750, top + kRowStep, 1000, kRowHeight);
  Place(tblTolerances, kControlsLeft, top + 2 * kRowStep, 3750, kBandPage.height - 100 - (top + 2 * kRowStep));
  for (QLineEdit* box : {txtGoal, txtSamples, txtSeed}) {
    connect(box, &QLineEdit::editingFinished, this, &BandWindow::SettingsEntered);
  }
  connect(cboSpread, &QComboBox::currentIndexChanged, this, &BandWindow::SettingsEntered);
  connect(tblTolerances, &QTableWidget::itemChanged, this, &BandWindow::ToleranceEdited);
}

void BandWindow::Show(BandQuantity quantity) {
  quantity_ = quantity;
  yieldShown_ = false;
  Refresh();
}

void BandWindow::Show(LoadModel loadModel) {
  loadModel_ = loadModel;
  Refresh();
}

void BandWindow::ShowYield() {
  yieldShown_ = true;
  Refresh();
}

void BandWindow::Refresh() {
  for (QWidget* control : std::initializer_list<QWidget*>{lblGoal, txtGoal, lblSamples, txtSamples, lblSpread,
                                                          cboSpread, lblSeed, txtSeed, tblTolerances}) {
    control->setVisible(yieldShown_);
  }
  if (yieldShown_) {
    RecomputeYield();
    return;
  }
  yieldTask_.Stop();
  Drawing().Clear(kWhite);
  DrawBandPlot(ComputeBandFigures(session_, kDefaultThresholds, loadModel_), quantity_, Drawing());
  update();
}

// The last result stays in view, marked, until the new one arrives.
void BandWindow::RecomputeYield() {
  FillTolerances();
  DrawYield(yield_.envelope.empty() ? "" : "recomputing");
  yieldTask_.Start(
      [network = session_, request = YieldSettings()](const std::atomic<bool>& stop) {
        return std::pair(ComputeYield(network, request, &stop), request);
      },
      [this](std::pair<YieldResult, YieldRequest> computed) {
        if (computed.first.cancelled) return;
        yield_ = std::move(computed.first);
        yieldRequest_ = std::move(computed.second);
        DrawYield("");
      });
}

void BandWindow::DrawYield(const std::string& note) {
  DrawYieldPlot(yield_, yield_.envelope.empty() ? YieldSettings() : yieldRequest_, note, Drawing());
  update();
}

void BandWindow::FillTolerances() {
  const std::vector<NetworkPart> parts = PartsOf(session_);
  if (SameParts(parts, toleranceRows_) && tblTolerances->rowCount() == static_cast<int>(parts.size())) return;
  toleranceRows_ = parts;
  const QSignalBlocker quiet(tblTolerances);
  tblTolerances->setRowCount(static_cast<int>(parts.size()));
  for (int row = 0; row < tblTolerances->rowCount(); ++row) {
    const NetworkPart& part = parts[static_cast<std::size_t>(row)];
    const QString cells[] = {QString::number(part.stage), PartLetter(part.kind),
                             Figure(ToleranceOf(YieldSettings(), part))};
    for (int column = 0; column < 3; ++column) {
      auto* item = new QTableWidgetItem(cells[column]);
      if (column < 2) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
      tblTolerances->setItem(row, column, item);
    }
  }
}

// A tolerance that does not read as 0 to 99 % keeps the one it had.
void BandWindow::ToleranceEdited(QTableWidgetItem* item) {
  const int row = item->row();
  if (item->column() != 2 || row < 0 || row >= static_cast<int>(toleranceRows_.size())) return;
  const NetworkPart& part = toleranceRows_[static_cast<std::size_t>(row)];
  const double percent = ParseValue(item->text().toStdString());
  const bool usable = std::isfinite(percent) && percent >= 0 && percent <= kHighestTolerance;
  if (usable) SetTolerance(YieldSettings(), part, percent);
  const QSignalBlocker quiet(tblTolerances);
  item->setText(Figure(ToleranceOf(YieldSettings(), part)));
  if (usable) Refresh();
}

// Leaving a box without a change computes nothing again.
void BandWindow::SettingsEntered() {
  YieldRequest& settings = YieldSettings();
  const auto shown = [](const YieldRequest& r) { return std::tuple(r.goal, r.samples, r.seed, r.spread); };
  const auto before = shown(settings);
  const double goal = ParseValue(txtGoal->text().toStdString());
  if (goal > 1) settings.goal = goal;
  const double samples = ParseValue(txtSamples->text().toStdString());
  if (samples >= 1) settings.samples = static_cast<int>(std::min(std::round(samples), 1.0 * kMostSamples));
  bool read = false;
  const qulonglong seed = txtSeed->text().trimmed().toULongLong(&read);
  if (read) settings.seed = seed;
  settings.spread = cboSpread->currentIndex() == 1 ? Spread::Normal : Spread::Uniform;
  txtGoal->setText(Figure(settings.goal));
  txtSamples->setText(QString::number(settings.samples));
  txtSeed->setText(QString::number(settings.seed));
  if (shown(settings) != before) Refresh();
}

void BandWindow::Print() {
  std::string error;
  const std::unique_ptr<PrintJob> job = dialogs_.StartPrint(kBandPage, error);
  if (!job) return;  // a cancelled print dialog says nothing
  if (yieldShown_) {
    WaitForYield();
    DrawYieldPlot(yield_, yield_.envelope.empty() ? YieldSettings() : yieldRequest_, "", job->Page());
  } else {
    DrawBandPlot(ComputeBandFigures(session_, kDefaultThresholds, loadModel_), quantity_, job->Page());
  }
  if (const std::string failure = job->Finish(); !failure.empty()) dialogs_.Message(failure);
}

}  // namespace kalvex
