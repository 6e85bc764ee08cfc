#include "ui/tuning_controls.h"

#include "analysis/test_frequency.h"
#include "model/format.h"
#include "platform/pages.h"
#include "ui/controls.h"
#include "ui/session_history.h"

namespace kalvex {
namespace {

constexpr Colour kPaleRed = RGB(255, 153, 153);

// The four step buttons of a row, left to right: "<<", "<", ">", ">>".
struct StepButton {
  const char* caption;
  StepDirection direction;
  double size;
  const char* coarseTip;
  const char* fineTip;
  const char* freqCoarseTip;
  const char* freqFineTip;
};
constexpr StepButton kSteps[] = {
    {"<<", StepDirection::Down, kLargeStep, "Down coarse", "Down very fine step",
     "Move test frequency down coarse step", "Move test frequency down very fine step"},
    {"<", StepDirection::Down, kSmallStep, "Down fine", "Down extremely fine step",
     "Move test frequency down fine step", "Move test frequency down extremely fine step"},
    {">", StepDirection::Up, kSmallStep, "Up fine", "Up extremely fine step",
     "Move test frequency up fine step", "Move test frequency up extremely fine step"},
    {">>", StepDirection::Up, kLargeStep, "Up coarse", "Up very fine step",
     "Move test frequency up coarse step", "Move test frequency up very fine step"}};

std::array<QPushButton*, 4> StepRow(Page& page, double top, Colour background) {
  std::array<QPushButton*, 4> row{};
  for (int i = 0; i < 4; ++i) {
    row[i] = new QPushButton(kSteps[i].caption, &page);
    SetBackground(row[i], background);
    page.Place(row[i], 500 + 360 * i, top, 360, 300);
  }
  return row;
}

QGroupBox* ModeFrame(Page& page, double top, QRadioButton*& geometric, QRadioButton*& arithmetic) {
  auto* frame = new QGroupBox(&page);
  geometric = new QRadioButton("Geometric", frame);
  arithmetic = new QRadioButton("Arithmetic", frame);
  page.Place(frame, 500, top, 2630, 360);
  page.Place(geometric, 100, 40, 1200, 300);
  page.Place(arithmetic, 1350, 40, 1200, 300);
  geometric->setChecked(true);
  frame->hide();
  return frame;
}

}  // namespace

TuningControls::TuningControls(Page& page, Session& session, Dialogs& dialogs,
                               std::function<void()> redraw)
    : QObject(&page),
      txtZ1(new QLineEdit(&page)),
      cmdZ1(new QPushButton(&page)),
      topSteps(StepRow(page, 2130, kOnColour)),
      fraTop(ModeFrame(page, 2430, optTopGeometric, optTopArithmetic)),
      txtZ2(new QLineEdit(&page)),
      cmdZ2(new QPushButton(&page)),
      bottomSteps(StepRow(page, 3180, kOnColour)),
      fraBottom(ModeFrame(page, 3480, optBottomGeometric, optBottomArithmetic)),
      lblTuneSize(new QLabel("Tune step size:", &page)),
      fraTuneSize(new QGroupBox(&page)),
      optTuneSizeNormal(new QRadioButton("Coarse steps", fraTuneSize)),
      optTuneSizeFine(new QRadioButton("Fine steps", fraTuneSize)),
      txtFreq(new QLineEdit(&page)),
      cmdFreq(new QPushButton("Freq enter", &page)),
      freqSteps(StepRow(page, 4350, session.AnalysisControlColour)),
      session_(session),
      dialogs_(dialogs),
      redraw_(std::move(redraw)) {
  page.Place(txtZ1, 500, 1800, 1440, 300);
  page.Place(cmdZ1, 1940, 1800, 1200, 300);
  page.Place(txtZ2, 500, 2850, 1440, 300);
  page.Place(cmdZ2, 1940, 2850, 1200, 300);
  for (QLineEdit* box : {txtZ1, txtZ2}) SetBackground(box, kOnColour);
  for (QPushButton* button : {cmdZ1, cmdZ2, cmdFreq}) {
    SetBackground(button, session_.AnalysisControlColour);
  }
  cmdZ1->setToolTip("Click to enter a new value");
  cmdZ2->setToolTip("Click to enter a new value");
  page.Place(lblTuneSize, 500, 4860, 1400, 300);
  page.Place(fraTuneSize, 500, 5060, 2800, 300);
  page.Place(optTuneSizeNormal, 50, 0, 1300, 300);
  page.Place(optTuneSizeFine, 1400, 0, 1300, 300);
  optTuneSizeNormal->setToolTip("Tuning stepsizes are set to 1% (< and >) and 10% (<< and >>)");
  optTuneSizeFine->setToolTip("Tuning stepsizes are set to .01% (< and >) and .1% (<< and >>)");
  page.Place(txtFreq, 500, 4050, 1440, 300);
  page.Place(cmdFreq, 1940, 4050, 1200, 300);
  cmdFreq->setToolTip("Enter the test frequency");
  txtFreq->setText(Q(FormatSI(session_.Frequency)));
  HidePanel();

  for (int i = 0; i < 4; ++i) {
    const StepButton step = kSteps[i];
    // A run of clicks on one button is one step.
    const QString run = QString::number(i);
    connect(topSteps[i], &QPushButton::clicked, this, [this, step, run] {
      ShowTexts(StepTopValue(session_, txtZ1->text().toStdString(), step.direction, step.size));
      MarkTopValue();
      redraw_();
      RecordTuning(false, "top " + run);
    });
    connect(bottomSteps[i], &QPushButton::clicked, this, [this, step, run] {
      ShowTexts(StepBottomValue(session_, txtZ2->text().toStdString(), step.direction, step.size));
      redraw_();
      RecordTuning(false, "bottom " + run);
    });
    connect(freqSteps[i], &QPushButton::clicked, this, [this, step, run] {
      txtFreq->setText(
          Q(StepTestFrequency(session_, txtFreq->text().toStdString(), step.direction, step.size)));
      redraw_();
      RecordTestFrequency("frequency " + run);
    });
  }
  // Enter in a box presses the box's own button.
  connect(txtZ1, &QLineEdit::returnPressed, cmdZ1, &QPushButton::click);
  connect(txtZ2, &QLineEdit::returnPressed, cmdZ2, &QPushButton::click);
  connect(txtFreq, &QLineEdit::returnPressed, cmdFreq, &QPushButton::click);
  connect(cmdZ1, &QPushButton::clicked, this, &TuningControls::EnteredTop);
  connect(cmdZ2, &QPushButton::clicked, this, &TuningControls::EnteredBottom);
  connect(cmdFreq, &QPushButton::clicked, this, [this] {
    EnterTestFrequency(session_, dialogs_, txtFreq->text().toStdString(),
                       [this](const std::string& text) { txtFreq->setText(Q(text)); });
    redraw_();
    RecordTestFrequency();
  });
  connect(optTuneSizeNormal, &QRadioButton::clicked, this, [this] {
    SetFineSteps(session_, false);
    ShowStepSize(false);
  });
  connect(optTuneSizeFine, &QRadioButton::clicked, this, [this] {
    SetFineSteps(session_, true);
    ShowStepSize(true);
  });
  connect(optTopArithmetic, &QRadioButton::clicked, this,
          [this] { ChooseTopStepMode(session_, true, txtZ1->text().toStdString()); });
  connect(optTopGeometric, &QRadioButton::clicked, this,
          [this] { ChooseTopStepMode(session_, false, txtZ1->text().toStdString()); });
  connect(optBottomArithmetic, &QRadioButton::clicked, this,
          [this] { ChooseBottomStepMode(session_, true, txtZ2->text().toStdString()); });
  connect(optBottomGeometric, &QRadioButton::clicked, this,
          [this] { ChooseBottomStepMode(session_, false, txtZ2->text().toStdString()); });

  const bool fine = LoadStepSize(session_);
  (fine ? optTuneSizeFine : optTuneSizeNormal)->setChecked(true);
  ShowStepSize(fine);
}

void TuningControls::SelectCell(int cell) {
  partClicked_ = true;
  const TuningPanel panel = SelectPart(session_, cell);
  // A two-port block is selected and framed like any part, with nothing to tune.
  if (cell >= 1 && cell <= kLastStage && session_.ElementType[cell] == TwoPort) {
    HidePanel();
  } else {
    ShowPanel(panel);
  }
  redraw_();
}

void TuningControls::ShowPanel(const TuningPanel& panel) {
  ShowTexts(panel);
  cmdZ1->setText(Q(panel.topCaption));
  cmdZ2->setText(Q(panel.bottomCaption));
  for (QWidget* control : {static_cast<QWidget*>(txtZ1), static_cast<QWidget*>(cmdZ1)}) {
    control->show();
  }
  for (QPushButton* step : topSteps) step->show();
  for (QWidget* control : {static_cast<QWidget*>(txtZ2), static_cast<QWidget*>(cmdZ2)}) {
    control->setVisible(panel.bottomRow);
  }
  for (QPushButton* step : bottomSteps) step->setVisible(panel.bottomRow);
  if (session_.SelectedStage > 0 && session_.ElementType[session_.SelectedStage] == ShuntResistor) {
    fraBottom->hide();
  }
}

void TuningControls::ShowTexts(const TuningPanel& panel) {
  txtZ1->setText(Q(panel.topText));
  txtZ2->setText(Q(panel.bottomText));
}

// ClearPart's hiding: both rows and their mode frames, the boxes emptied and
// (unless `keepColours`) pale green again.
void TuningControls::HidePanel(bool keepColours) {
  for (QLineEdit* box : {txtZ1, txtZ2}) {
    box->clear();
    if (!keepColours) SetBackground(box, kOnColour);
    box->hide();
  }
  cmdZ1->hide();
  cmdZ2->hide();
  for (QPushButton* step : topSteps) step->hide();
  for (QPushButton* step : bottomSteps) step->hide();
  fraTop->hide();
  fraBottom->hide();
}

// A top value of 0 or less leaves the part out of the strip: its box says so.
void TuningControls::MarkTopValue() {
  SetBackground(txtZ1, session_.Value[session_.SelectedStage][1] > 0 ? kOnColour : kPaleRed);
}

void TuningControls::ShowStepSize(bool fine) {
  SetBackground(optTuneSizeFine, fine ? kOnColour : kPageBackground);
  for (int i = 0; i < 4; ++i) {
    const char* tip = fine ? kSteps[i].fineTip : kSteps[i].coarseTip;
    topSteps[i]->setToolTip(tip);
    bottomSteps[i]->setToolTip(tip);
    freqSteps[i]->setToolTip(fine ? kSteps[i].freqFineTip : kSteps[i].freqCoarseTip);
  }
}

void TuningControls::ShowSession() {
  txtFreq->setText(Q(FormatSI(session_.Frequency)));
  if (!partClicked_) return;
  const int s = session_.SelectedStage;
  const bool partThere = s == 0 || (s >= 1 && s <= kLastStage && IsTunable(session_.ElementType[s]));
  if (!partThere) {
    HidePanel();
    return;
  }
  ShowPanel(PanelOf(session_, s));
  MarkTopValue();
}

void TuningControls::RecordTuning(bool cleared, const QString& run) {
  const int s = session_.SelectedStage;
  const QString step = s == 0 ? QString("Tune load") : QString(cleared ? "Clear stage %1" : "Tune stage %1").arg(s);
  RecordStep(step, run.isEmpty() ? run : step + " " + run);
}

void TuningControls::RecordTestFrequency(const QString& run) {
  RecordStep("Test frequency " + HzText(session_.Frequency), run);
}

void TuningControls::EnteredTop() {
  const Entered entered = EnterTopValue(session_, dialogs_, txtZ1->text().toStdString());
  switch (entered) {
    case Entered::PartCleared: HidePanel(); break;
    case Entered::LoadReset:
      // The load stays selected: its hidden boxes still get 50 and 0.
      HidePanel(/*keepColours=*/true);
      ShowTexts(PanelOf(session_, session_.SelectedStage));
      break;
    case Entered::Value: ShowTexts(PanelOf(session_, session_.SelectedStage)); break;
  }
  redraw_();
  RecordTuning(entered == Entered::PartCleared);
}

void TuningControls::EnteredBottom() {
  const bool cleared = EnterBottomValue(session_, txtZ2->text().toStdString()) == Entered::PartCleared;
  if (cleared) {
    HidePanel();
  } else {
    ShowTexts(PanelOf(session_, session_.SelectedStage));
  }
  redraw_();
  RecordTuning(cleared);
}

}  // namespace kalvex
