#include "simulated_analyser.h"

#include <cstdio>
#include <sstream>
#include <utility>
#include <vector>

namespace kalvex {
namespace {

constexpr const char* kPrompt = "ch> ";
constexpr const char* kVersion = "kalvex-sim-vna 1.0";

std::string Line(const char* format, double a, double b = 0, double c = 0) {
  char text[128];
  std::snprintf(text, sizeof text, format, a, b, c);
  return text;
}

}  // namespace

SimulatedAnalyser::SimulatedAnalyser(SimulatedLoad load, AnalyserFaults faults, bool takesScan, int mostPerScan)
    : load_(std::move(load)), faults_(faults), takesScan_(takesScan), mostPerScan_(mostPerScan) {}

std::string SimulatedAnalyser::Feed(std::string_view bytes) {
  std::string out;
  for (const char c : bytes) {
    if (Stalled() || Vanished()) break;
    const bool lfAfterCr = c == '\n' && lastWasCr_;
    lastWasCr_ = c == '\r';
    if (lfAfterCr) continue;
    if (c != '\r' && c != '\n') {
      typed_ += c;
      continue;
    }
    const std::string line = std::exchange(typed_, {});
    out += line + "\r\n";
    out += Run(line);
    if (!Stalled() && !Vanished()) out += kPrompt;
  }
  return out;
}

std::string SimulatedAnalyser::Run(const std::string& line) {
  std::istringstream words(line);
  std::string command;
  words >> command;
  std::vector<double> numbers;
  for (double number; words >> number;) numbers.push_back(number);
  if (command.empty()) return "";
  if (command == "version") return std::string(kVersion) + "\r\n";
  if (command == "info") {
    return "Kalvex simulated analyser\r\nBoard: pseudo-terminal\r\n" + load_.Description() + "\r\n";
  }
  if (command == "scan" && takesScan_) {
    if (numbers.size() < 3) return "usage: scan {start(Hz)} {stop(Hz)} [points] [outmask]\r\n";
    const int points = static_cast<int>(numbers[2]);
    if (points < 1 || points > mostPerScan_) return "scan: points must be 1.." + std::to_string(mostPerScan_) + "\r\n";
    const int mask = numbers.size() > 3 ? static_cast<int>(numbers[3]) : 0;
    return Scan(static_cast<int64_t>(numbers[0]), static_cast<int64_t>(numbers[1]), points, mask);
  }
  if (command == "sweep") {
    if (numbers.empty()) {
      return std::to_string(sweepStart_) + " " + std::to_string(sweepStop_) + " " + std::to_string(sweepPoints_) + "\r\n";
    }
    if (numbers.size() < 3 || numbers[2] < 1 || numbers[2] > mostPerScan_) {
      return "usage: sweep {start(Hz)} [stop(Hz)] [points]\r\n";
    }
    sweepStart_ = static_cast<int64_t>(numbers[0]);
    sweepStop_ = static_cast<int64_t>(numbers[1]);
    sweepPoints_ = static_cast<int>(numbers[2]);
    return "";
  }
  if (command == "frequencies") return Frequencies();
  if (command == "data") return Data(numbers.empty() ? 0 : static_cast<int>(numbers[0]));
  return command + "?\r\n";
}

double SimulatedAnalyser::FrequencyAt(int64_t start, int64_t stop, int points, int k) const {
  if (points == 1) return static_cast<double>(start);
  return static_cast<double>(start + (stop - start) * k / (points - 1));
}

std::string SimulatedAnalyser::Scan(int64_t start, int64_t stop, int points, int mask) {
  if (measuring_) measuring_();
  std::string out;
  for (int k = 0; k < points && !Stalled() && !Vanished(); ++k) {
    const double frequency = FrequencyAt(start, stop, points, k);
    const std::complex<double> s11 = S11Of(load_.ImpedanceAt(frequency));
    std::string line;
    if (mask & 1) line += Line("%.0f ", frequency);
    if (mask & 2) line += Line("%.9f %.9f ", s11.real(), s11.imag());
    if (mask & 4) line += "0.000000000 0.000000000 ";
    if (line.empty()) continue;
    line.pop_back();
    Send(out, line);
  }
  return out;
}

std::string SimulatedAnalyser::Frequencies() {
  std::string out;
  for (int k = 0; k < sweepPoints_ && !Stalled() && !Vanished(); ++k) {
    Send(out, Line("%.0f", FrequencyAt(sweepStart_, sweepStop_, sweepPoints_, k)));
  }
  return out;
}

std::string SimulatedAnalyser::Data(int which) {
  if (which == 0 && measuring_) measuring_();
  std::string out;
  for (int k = 0; k < sweepPoints_ && !Stalled() && !Vanished(); ++k) {
    const double frequency = FrequencyAt(sweepStart_, sweepStop_, sweepPoints_, k);
    const std::complex<double> s11 = which == 0 ? S11Of(load_.ImpedanceAt(frequency)) : 0.0;
    Send(out, Line("%.9f %.9f", s11.real(), s11.imag()));
  }
  return out;
}

void SimulatedAnalyser::Send(std::string& out, std::string line) {
  ++sent_;
  if (faults_.dropEvery > 0 && sent_ % faults_.dropEvery == 0) return;
  if (faults_.garbleEvery > 0 && sent_ % faults_.garbleEvery == 0) {
    // In turns: a digit struck by noise, or the line cut short.
    if ((sent_ / faults_.garbleEvery) % 2 == 0) {
      line[line.find_first_of("0123456789")] = 'x';
    } else {
      line.resize(line.size() / 3);
    }
  }
  out += line + "\r\n";
}

}  // namespace kalvex
