#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QSerialPort>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "device/analyser_link.h"

namespace kalvex {

// An analyser on a serial port, sweeping until stopped: the port's bytes go to
// the conversation as they arrive (on the window's thread, between its
// events, so the pages stay responsive) and each finished sweep is handed on.
// A QObject so that a handler of its events may end it with deleteLater().
class AnalyserPort : public QObject {
 public:
  struct Events {
    std::function<void(const MeasuredSweep&)> sweep;
    std::function<void(const std::string&)> identified;  // version and info, once
    std::function<void(const std::string&)> failed;      // why it stopped, a sentence
  };

  AnalyserPort(const std::string& portName, const SweepPlan& plan, Events events);

  // Opens the port and starts the conversation; "" or why it cannot.
  std::string Start();
  bool Running() const { return link_ != nullptr; }
  // Ends the conversation and closes the port, without an event.
  void Close();

 private:
  void Pump();

  QSerialPort port_;
  QTimer clock_;
  QElapsedTimer elapsed_;
  SweepPlan plan_;
  Events events_;
  std::unique_ptr<AnalyserLink> link_;
  bool identified_ = false;
};

}  // namespace kalvex
