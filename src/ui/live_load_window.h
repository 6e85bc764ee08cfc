#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <deque>
#include <functional>
#include <optional>

#include "device/measured_sweep.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/analyser_port.h"

namespace kalvex {

// "Live load": the load read from a pocket vector network analyser on a
// serial port, sweep after sweep, each finished sweep becoming the session's
// load data and the Analysis page drawn again. Stop goes back to the load the
// session had before; Freeze keeps the last sweep as its load data; Save .s1p
// writes that sweep. One such window, opened from the Analysis page.
class LiveLoadWindow : public QWidget {
  Q_OBJECT

 public:
  // Shows the one live-load window, opening it when none is open.
  static LiveLoadWindow* Show(Session& session, Dialogs& dialogs);

  // The page a finished sweep draws again: the Analysis page on screen.
  static void Follow(QWidget* page, std::function<void()> redraw);

  // "   Live load: 2.4 sweeps/s" for the status line while measuring, else "".
  static QString StatusText();

  QComboBox* cboPort;
  QLineEdit* txtStart;
  QLineEdit* txtStop;
  QLineEdit* txtPoints;
  QPushButton* cmdStartStop;
  QPushButton* cmdFreeze;
  QPushButton* cmdSave;
  QLabel* lblState;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  LiveLoadWindow(Session& session, Dialogs& dialogs);
  void ListPorts();
  std::string ChosenPort() const;
  void Start();
  // Ends measuring; the session keeps the last sweep or goes back to its load.
  void End(bool keepLastSweep);
  void RecordKeptSweep();
  void SweepArrived(const MeasuredSweep& sweep);
  void Failed(const std::string& why);
  void Save();
  void ShowState();
  void RedrawFollowedPage();
  double SweepsPerSecond() const;

  Session& session_;
  Dialogs& dialogs_;
  QPointer<AnalyserPort> analyser_;
  std::string portName_;
  std::string identity_;
  std::optional<NetworkState> before_;
  std::optional<MeasuredSweep> lastSweep_;
  int sweeps_ = 0;
  int leftOutLines_ = 0;
  QElapsedTimer clock_;
  std::deque<qint64> sweepTimes_;  // when the last few sweeps finished
  QString message_;
};

}  // namespace kalvex
