#include "analyser_measurement.h"

#include <chrono>

#include "posix_serial.h"

namespace kalvex {
namespace {

Milliseconds Now() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

AnalyserMeasurement MeasureOnPort(const std::string& port, const SweepPlan& plan, int sweeps,
                                  Milliseconds timeout) {
  AnalyserMeasurement measurement;
  PosixSerial serial;
  if (const std::string failure = serial.Open(port); !failure.empty()) {
    measurement.failure = "cannot open " + port + ": " + failure;
    return measurement;
  }
  AnalyserLink link(plan, sweeps, Now(), timeout);
  while (!link.Done() && !link.Failed()) {
    if (const std::string failure = serial.Write(link.TakeOutgoing()); !failure.empty()) {
      link.PortLost(failure);
      break;
    }
    const PosixSerial::Read read = serial.ReadSome(50);
    if (!read.failure.empty()) link.PortLost(read.failure);
    link.Receive(read.bytes, Now());
    link.CheckTime(Now());
    if (auto sweep = link.TakeSweep()) measurement.sweeps.push_back(std::move(*sweep));
  }
  measurement.version = link.Version();
  measurement.info = link.Info();
  measurement.takesScan = link.TakesScan();
  measurement.failure = link.Failure();
  return measurement;
}

}  // namespace kalvex
