#include "ui/live_load_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSerialPortInfo>
#include <QVBoxLayout>

#include "device/sweep_plan.h"
#include "files/safe_write.h"
#include "model/format.h"
#include "ui/band_window.h"
#include "ui/controls.h"
#include "ui/session_history.h"

namespace kalvex {
namespace {

QPointer<LiveLoadWindow> openWindow;
QPointer<QWidget> followedPage;
std::function<void()> followedRedraw;

// The USB id such analysers show themselves with, whose port is offered first.
constexpr quint16 kAnalyserVendor = 0x0483;
constexpr quint16 kAnalyserProduct = 0x5740;

constexpr int kRateSweeps = 5;  // the rate is taken over the last few sweeps

constexpr const char* kCalibrationNote =
    "The analyser's own calibration corrects what it measures: calibrate it (open, short, load) "
    "at the end of the cable where the network will sit, and Kalvex sees the antenna from there. "
    "The load is taken against the analyser's 50 ohm reference.";

QString Hertz(double hertz) { return Q(FormatSI(hertz)).trimmed(); }

}  // namespace

LiveLoadWindow* LiveLoadWindow::Show(Session& session, Dialogs& dialogs) {
  if (openWindow.isNull()) {
    openWindow = new LiveLoadWindow(session, dialogs);
    openWindow->setAttribute(Qt::WA_DeleteOnClose);
  }
  if (!openWindow->analyser_) openWindow->ListPorts();
  openWindow->show();
  openWindow->raise();
  openWindow->activateWindow();
  return openWindow;
}

void LiveLoadWindow::Follow(QWidget* page, std::function<void()> redraw) {
  followedPage = page;
  followedRedraw = std::move(redraw);
}

QString LiveLoadWindow::StatusText() {
  if (openWindow.isNull() || !openWindow->analyser_) return "";
  return QString("   Live load: %1 sweeps/s").arg(openWindow->SweepsPerSecond(), 0, 'f', 1);
}

LiveLoadWindow::LiveLoadWindow(Session& session, Dialogs& dialogs)
    : QWidget(nullptr, Qt::Window),
      cboPort(new QComboBox(this)),
      txtStart(new QLineEdit(this)),
      txtStop(new QLineEdit(this)),
      txtPoints(new QLineEdit(this)),
      cmdStartStop(new QPushButton("Start", this)),
      cmdFreeze(new QPushButton("Freeze", this)),
      cmdSave(new QPushButton("Save .s1p", this)),
      lblState(new QLabel(this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle("Live load");
  cboPort->setEditable(true);
  cboPort->setToolTip("The analyser's serial port: one listed with its USB id, or a device name typed");
  cmdFreeze->setToolTip("Stop measuring and keep the last sweep as the load data");
  cmdSave->setToolTip("Write the last sweep as a one-port Touchstone file");
  cmdStartStop->setToolTip("Start or stop reading the load from the analyser");
  // The plan of the session's sweep, where it has one.
  const SweepPlan plan = session_.SweepStop > session_.SweepStart
                             ? SweepPlan{session_.SweepStart, session_.SweepStop, 101}
                             : SweepPlan{};
  txtStart->setText(Hertz(plan.start));
  txtStop->setText(Hertz(plan.stop));
  txtPoints->setText(QString::number(plan.points));

  auto* form = new QGridLayout;
  form->addWidget(new QLabel("Port:", this), 0, 0);
  form->addWidget(cboPort, 0, 1, 1, 5);
  const std::pair<const char*, QLineEdit*> boxes[] = {{"Start (Hz):", txtStart}, {"Stop (Hz):", txtStop},
                                                       {"Points:", txtPoints}};
  for (int k = 0; k < 3; ++k) {
    form->addWidget(new QLabel(boxes[k].first, this), 1, 2 * k);
    form->addWidget(boxes[k].second, 1, 2 * k + 1);
  }
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {cmdStartStop, cmdFreeze, cmdSave}) buttons->addWidget(button);
  buttons->addStretch();
  auto* note = new QLabel(kCalibrationNote, this);
  note->setWordWrap(true);
  lblState->setWordWrap(true);
  lblState->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addLayout(buttons);
  layout->addWidget(note);
  layout->addWidget(lblState);
  layout->addStretch();
  resize(620, 260);

  connect(cmdStartStop, &QPushButton::clicked, this, [this] {
    if (analyser_) End(false);
    else Start();
  });
  connect(cmdFreeze, &QPushButton::clicked, this, [this] { End(true); });
  connect(cmdSave, &QPushButton::clicked, this, &LiveLoadWindow::Save);
  clock_.start();
  ShowState();
}

void LiveLoadWindow::ListPorts() {
  const QString typed = cboPort->currentText();
  cboPort->clear();
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    QString text = info.systemLocation();
    if (info.hasVendorIdentifier() && info.hasProductIdentifier()) {
      text += QString("  %1:%2").arg(info.vendorIdentifier(), 4, 16, QChar('0')).arg(info.productIdentifier(), 4, 16, QChar('0'));
    }
    if (!info.description().isEmpty()) text += "  " + info.description();
    cboPort->addItem(text, info.systemLocation());
    if (info.vendorIdentifier() == kAnalyserVendor && info.productIdentifier() == kAnalyserProduct) {
      cboPort->setCurrentIndex(cboPort->count() - 1);
    }
  }
  if (!typed.isEmpty()) cboPort->setCurrentText(typed);
}

// A listed port by its location; anything else as typed.
std::string LiveLoadWindow::ChosenPort() const {
  const int listed = cboPort->findText(cboPort->currentText());
  if (listed >= 0) return cboPort->itemData(listed).toString().toStdString();
  return cboPort->currentText().trimmed().toStdString();
}

void LiveLoadWindow::Start() {
  const SweepPlan plan{ParseValue(txtStart->text().toStdString()), ParseValue(txtStop->text().toStdString()),
                       static_cast<int>(ParseValue(txtPoints->text().toStdString()))};
  if (const std::string problem = PlanProblem(plan); !problem.empty()) {
    dialogs_.Message("The live load cannot sweep that: " + problem + ".", "Live load");
    return;
  }
  portName_ = ChosenPort();
  if (portName_.empty()) {
    dialogs_.Message("Choose the analyser's port, or type its name (such as /dev/ttyACM0).", "Live load");
    return;
  }
  auto* analyser = new AnalyserPort(portName_, plan,
                                    {[this](const MeasuredSweep& sweep) { SweepArrived(sweep); },
                                     [this](const std::string& identity) {
                                       identity_ = identity;
                                       ShowState();
                                     },
                                     [this](const std::string& why) { Failed(why); }});
  analyser->setParent(this);
  if (const std::string failure = analyser->Start(); !failure.empty()) {
    delete analyser;
    dialogs_.Message("Cannot open " + portName_ + ": " + failure, "Live load");
    return;
  }
  analyser_ = analyser;
  if (!before_) before_ = NetworkStateOf(session_);
  identity_.clear();
  message_.clear();
  sweeps_ = 0;
  leftOutLines_ = 0;
  sweepTimes_.clear();
  ShowState();
}

void LiveLoadWindow::End(bool keepLastSweep) {
  if (analyser_) {
    analyser_->Close();
    analyser_->deleteLater();
    analyser_ = nullptr;
  }
  if (before_ && keepLastSweep && sweeps_ > 0) {
    RecordKeptSweep();
  } else if (before_) {
    RestoreLoad(session_, *before_);
    if (SessionHistory* history = SessionHistory::Instance()) history->Settle();
  }
  before_.reset();
  RedrawFollowedPage();
  ShowState();
}

// What measuring leaves behind is one step: the last sweep kept as the load
// data, which undo takes back to the load of before.
void LiveLoadWindow::RecordKeptSweep() {
  SessionHistory* history = SessionHistory::Instance();
  if (history == nullptr) return;
  const NetworkState kept = NetworkStateOf(session_);
  RestoreLoad(session_, *before_);
  history->Settle();
  RestoreLoad(session_, kept);
  history->Record("Live load kept");
}

void LiveLoadWindow::SweepArrived(const MeasuredSweep& sweep) {
  leftOutLines_ += sweep.leftOutLines;
  if (TakeMeasuredLoad(session_, sweep) == 0) {
    ShowState();
    return;
  }
  // The sweeps come and go without being steps of the history.
  if (SessionHistory* history = SessionHistory::Instance()) history->Settle();
  lastSweep_ = sweep;
  ++sweeps_;
  sweepTimes_.push_back(clock_.elapsed());
  if (sweepTimes_.size() > kRateSweeps) sweepTimes_.pop_front();
  RedrawFollowedPage();
  ShowState();
}

// A device that stops answering or goes away leaves its last sweep as the
// session's load data.
void LiveLoadWindow::Failed(const std::string& why) {
  message_ = Q(portName_ + ": " + why) +
             (sweeps_ > 0 ? " The last complete sweep stays as the load data." : " No sweep was complete.");
  End(true);
  dialogs_.Message(message_.toStdString(), "Live load", MessageButtons::Ok, MessageIcon::Warning);
}

void LiveLoadWindow::Save() {
  if (!lastSweep_) {
    dialogs_.Message("No sweep has been measured yet.", "Live load");
    return;
  }
  std::string name = dialogs_.ChooseSaveFile("Save the measured load", "Touchstone one-port files (*.s1p)|*.s1p",
                                             "antenna.s1p");
  if (name.empty()) return;
  if (name.find('.', name.find_last_of('/') + 1) == std::string::npos) name += ".s1p";
  const std::string text = MeasuredTouchstone(
      *lastSweep_, {"Kalvex live load, " + dialogs_.LocalDateTime() + ", on " + portName_,
                    "analyser: " + identity_, "S11 as corrected by the analyser's own calibration"});
  if (const std::string failure = WriteFileSafely(name, text); !failure.empty()) {
    dialogs_.Message(failure, "Live load", MessageButtons::Ok, MessageIcon::Warning);
  }
}

void LiveLoadWindow::RedrawFollowedPage() {
  if (!followedPage.isNull() && followedRedraw) followedRedraw();
  else BandWindow::RefreshOpen();
}

double LiveLoadWindow::SweepsPerSecond() const {
  if (sweepTimes_.size() < 2) return 0;
  const double seconds = (sweepTimes_.back() - sweepTimes_.front()) / 1000.0;
  return seconds > 0 ? (sweepTimes_.size() - 1) / seconds : 0;
}

void LiveLoadWindow::ShowState() {
  cmdStartStop->setText(analyser_ ? "Stop" : "Start");
  cmdFreeze->setEnabled(analyser_ && sweeps_ > 0);
  cmdSave->setEnabled(lastSweep_.has_value());
  for (QWidget* box : std::initializer_list<QWidget*>{cboPort, txtStart, txtStop, txtPoints}) {
    box->setEnabled(!analyser_);
  }
  QString state;
  if (analyser_) {
    state = QString("Measuring on %1%2: %3 sweeps, %4 sweeps/s")
                .arg(Q(portName_), identity_.empty() ? QString(" (asking who it is)") : Q(", " + identity_))
                .arg(sweeps_)
                .arg(SweepsPerSecond(), 0, 'f', 1);
    if (leftOutLines_ > 0) state += QString(", %1 malformed lines left out").arg(leftOutLines_);
    state += ".";
  } else {
    state = message_.isEmpty() ? QString("Not measuring.") : message_;
  }
  if (lastSweep_) {
    state += QString(" Last sweep: %1 points, %2Hz to %3Hz.")
                 .arg(lastSweep_->points.size())
                 .arg(Hertz(lastSweep_->points.front().frequency), Hertz(lastSweep_->points.back().frequency));
  }
  lblState->setText(state);
}

void LiveLoadWindow::closeEvent(QCloseEvent* event) {
  // Closing the window while measuring keeps what was measured.
  if (analyser_) End(true);
  QWidget::closeEvent(event);
}

}  // namespace kalvex
