#include "ui/analyser_port.h"

namespace kalvex {

AnalyserPort::AnalyserPort(const std::string& portName, const SweepPlan& plan, Events events)
    : plan_(plan), events_(std::move(events)) {
  port_.setPortName(QString::fromStdString(portName));
  QObject::connect(&port_, &QSerialPort::readyRead, this, [this] { Pump(); });
  QObject::connect(&port_, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || !link_) return;
    // A device unplugged (or a terminal whose other end closed) is a resource error.
    link_->PortLost(error == QSerialPort::ResourceError ? "the port closed" : port_.errorString().toStdString());
    Pump();
  });
  // Silence is noticed by the clock, not by the port.
  clock_.setInterval(100);
  QObject::connect(&clock_, &QTimer::timeout, this, [this] { Pump(); });
}

std::string AnalyserPort::Start() {
  if (!port_.open(QIODevice::ReadWrite)) return port_.errorString().toStdString();
  port_.setBaudRate(QSerialPort::Baud115200);
  elapsed_.start();
  link_ = std::make_unique<AnalyserLink>(plan_, 0, elapsed_.elapsed());
  clock_.start();
  Pump();
  return "";
}

void AnalyserPort::Pump() {
  if (!link_) return;
  const QByteArray bytes = port_.readAll();
  link_->Receive(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())), elapsed_.elapsed());
  link_->CheckTime(elapsed_.elapsed());
  if (link_->Failed()) {
    const std::string why = link_->Failure();
    Close();
    if (events_.failed) events_.failed(why);
    return;
  }
  // The next scan goes out before the finished sweep is drawn, so that the
  // analyser measures while the page draws.
  if (const std::string outgoing = link_->TakeOutgoing(); !outgoing.empty()) {
    port_.write(outgoing.data(), static_cast<qint64>(outgoing.size()));
    port_.flush();
  }
  if (!identified_ && !link_->Version().empty()) {
    identified_ = true;
    if (events_.identified) events_.identified(link_->Version() + (link_->Info().empty() ? "" : " (" + link_->Info() + ")"));
  }
  if (auto sweep = link_->TakeSweep(); sweep && events_.sweep) events_.sweep(*sweep);
}

void AnalyserPort::Close() {
  clock_.stop();
  link_.reset();
  port_.close();
}

}  // namespace kalvex
