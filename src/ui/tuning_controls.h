#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <functional>

#include "analysis/tuning.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/page.h"

namespace kalvex {

// The Analysis page's tuning panel (the selected part's two values with their
// enter and step buttons), the step-size choice and the test frequency. Every
// change ends in `redraw`, the page's full redraw.
class TuningControls : public QObject {
  Q_OBJECT

 public:
  TuningControls(Page& page, Session& session, Dialogs& dialogs, std::function<void()> redraw);

  // A click on the network strip selected cell 0..5.
  void SelectCell(int cell);

  // After an undo or redo: the test frequency and the selected part's values
  // as the session holds them; the panel of a part clicked on this page hides
  // while the part is gone and shows again when it is back.
  void ShowSession();

  QLineEdit* txtZ1;
  QPushButton* cmdZ1;
  std::array<QPushButton*, 4> topSteps;  // cmd3down10, cmd3down1, cmd3up1, cmd3up10
  QGroupBox* fraTop;
  QRadioButton* optTopGeometric;
  QRadioButton* optTopArithmetic;
  QLineEdit* txtZ2;
  QPushButton* cmdZ2;
  std::array<QPushButton*, 4> bottomSteps;  // cmd4down10, cmd4down1, cmd4up1, cmd4up10
  QGroupBox* fraBottom;
  QRadioButton* optBottomGeometric;
  QRadioButton* optBottomArithmetic;
  QLabel* lblTuneSize;
  QGroupBox* fraTuneSize;
  QRadioButton* optTuneSizeNormal;
  QRadioButton* optTuneSizeFine;
  QLineEdit* txtFreq;
  QPushButton* cmdFreq;
  std::array<QPushButton*, 4> freqSteps;  // cmdFreqDown10, cmdFreqDown1, cmdFreqUp1, cmdFreqUp10

 private:
  void ShowPanel(const TuningPanel& panel);
  void ShowTexts(const TuningPanel& panel);
  void HidePanel(bool keepColours = false);
  void MarkTopValue();
  void ShowStepSize(bool fine);
  void EnteredTop();
  void EnteredBottom();
  // Records the selected part's change: "Tune stage 2", or "Clear stage 2"
  // when an entry removed it.
  void RecordTuning(bool cleared = false, const QString& run = {});
  void RecordTestFrequency(const QString& run = {});

  Session& session_;
  Dialogs& dialogs_;
  std::function<void()> redraw_;
  bool partClicked_ = false;  // a cell of the strip was clicked on this page
};

}  // namespace kalvex
