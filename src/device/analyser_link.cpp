#include "device/analyser_link.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

namespace kalvex {
namespace {

// The numbers of a line separated by blanks, when all of them are finite
// numbers and there are exactly `count`.
std::optional<std::vector<double>> Numbers(std::string_view line, std::size_t count) {
  std::vector<double> numbers;
  while (true) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string_view::npos) break;
    line.remove_prefix(start);
    const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
    double value = 0;
    const auto [stop, error] = std::from_chars(line.data(), line.data() + end, value);
    if (error != std::errc() || stop != line.data() + end || !std::isfinite(value)) return std::nullopt;
    if (numbers.size() == count) return std::nullopt;
    numbers.push_back(value);
    line.remove_prefix(end);
  }
  if (numbers.size() != count) return std::nullopt;
  return numbers;
}

// Bits of a scan's last word: the frequency, then S11 as real and imaginary.
constexpr int kScanFrequencyAndS11 = 1 | 2;
// A reflection far outside the unit circle is no measurement of a load.
constexpr double kLargestS11 = 10;

std::string Seconds(Milliseconds time) {
  const double seconds = time / 1000.0;
  char text[32];
  std::snprintf(text, sizeof text, "%g", seconds);
  return text;
}

}  // namespace

AnalyserLink::AnalyserLink(SweepPlan plan, int sweeps, Milliseconds now, Milliseconds timeout)
    : segments_(SegmentSweep(plan)), sweepsLeft_(sweeps), timeout_(timeout), lastHeard_(now) {
  // An empty line: whatever the shell was doing, it ends with a prompt.
  outgoing_ = "\r";
  reply_.Expect("", false);
}

std::string AnalyserLink::TakeOutgoing() { return std::exchange(outgoing_, {}); }

void AnalyserLink::Ask(Step step, const std::string& command) {
  step_ = step;
  reply_.Expect(command);
  outgoing_ += command + "\r";
}

void AnalyserLink::Receive(std::string_view bytes, Milliseconds now) {
  if (Failed() || Done() || bytes.empty()) return;
  lastHeard_ = now;
  const int overlong = reply_.OverlongLines();
  const auto lines = reply_.Feed(bytes);
  sweep_.leftOutLines += reply_.OverlongLines() - overlong;
  if (lines) Answered(*lines);
}

void AnalyserLink::CheckTime(Milliseconds now) {
  if (Failed() || Done() || now - lastHeard_ <= timeout_) return;
  Fail("The analyser stopped answering: nothing came for " + Seconds(now - lastHeard_) +
       (step_ >= Step::Scan ? " s in the middle of a sweep." : " s while it was asked who it is."));
}

void AnalyserLink::PortLost(const std::string& why) {
  if (Failed() || Done()) return;
  Fail("The analyser went away" + std::string(step_ >= Step::Scan ? " in the middle of a sweep" : "") +
       (why.empty() ? "." : ": " + why + "."));
}

void AnalyserLink::Fail(std::string why) {
  failure_ = std::move(why);
  outgoing_.clear();
}

std::optional<MeasuredSweep> AnalyserLink::TakeSweep() { return std::exchange(finished_, std::nullopt); }

void AnalyserLink::Answered(const std::vector<std::string>& lines) {
  switch (step_) {
    case Step::Wake:
      Ask(Step::Version, "version");
      break;
    case Step::Version:
      version_ = lines.empty() ? "" : lines.front();
      Ask(Step::Info, "info");
      break;
    case Step::Info:
      for (const std::string& line : lines) info_ += (info_.empty() ? "" : "; ") + line;
      AskSegment();
      break;
    case Step::Scan:
      ScanAnswered(lines);
      break;
    case Step::SetSweep:
      Ask(Step::Frequencies, "frequencies");
      break;
    case Step::Frequencies:
      frequencyLines_ = lines;
      Ask(Step::Data, "data 0");
      break;
    case Step::Data:
      DataAnswered(lines);
      break;
    case Step::Done:
      break;
  }
}

void AnalyserLink::AskSegment() {
  const ScanSegment& s = segments_[segment_];
  const std::string range = std::to_string(s.start) + " " + std::to_string(s.stop) + " " + std::to_string(s.points);
  if (takesScan_) {
    Ask(Step::Scan, "scan " + range + " " + std::to_string(kScanFrequencyAndS11));
  } else {
    Ask(Step::SetSweep, "sweep " + range);
  }
}

bool AnalyserLink::Take(double frequency, double re, double im) {
  const ScanSegment& s = segments_[segment_];
  const std::size_t taken = sweep_.points.size();
  // The analyser may round its grid by a hertz or so.
  const bool inRange = frequency >= s.start - 1.5 && frequency <= s.stop + 1.5;
  const bool rising = taken == 0 || frequency > sweep_.points.back().frequency;
  if (!inRange || !rising || std::hypot(re, im) > kLargestS11) return false;
  sweep_.points.push_back({frequency, {re, im}});
  return true;
}

void AnalyserLink::ScanAnswered(const std::vector<std::string>& lines) {
  const int limit = segments_[segment_].points;
  int taken = 0;
  int refused = 0;
  int numeric = 0;
  for (const std::string& line : lines) {
    const auto numbers = Numbers(line, 3);
    numeric += numbers.has_value();
    if (taken < limit && numbers && Take((*numbers)[0], (*numbers)[1], (*numbers)[2])) ++taken;
    else ++refused;
  }
  if (numeric == 0 && !scanTried_) {
    // Firmware without `scan` says so in its own words: ask the old way.
    scanTried_ = true;
    takesScan_ = false;
    AskSegment();
    return;
  }
  scanTried_ = true;
  sweep_.leftOutLines += refused;
  SegmentMeasured(taken);
}

void AnalyserLink::DataAnswered(const std::vector<std::string>& lines) {
  int taken = 0;
  int refused = 0;
  // Frequencies and data pair line by line only when both answers are whole.
  const bool paired = lines.size() == frequencyLines_.size() &&
                      std::ssize(lines) == segments_[segment_].points;
  bool numeric = false;
  for (std::size_t k = 0; k < lines.size(); ++k) {
    const auto s11 = Numbers(lines[k], 2);
    const auto frequency = k < frequencyLines_.size() ? Numbers(frequencyLines_[k], 1) : std::nullopt;
    numeric = numeric || s11 || frequency;
    if (paired && frequency && s11 && Take((*frequency)[0], (*s11)[0], (*s11)[1])) ++taken;
    else ++refused;
  }
  if (!paired) refused = static_cast<int>(std::max(lines.size(), frequencyLines_.size()));
  if (!numeric && !measuredOnce_) {
    Fail("The device answers neither scan nor sweep, frequencies and data as an analyser does.");
    return;
  }
  sweep_.leftOutLines += refused;
  frequencyLines_.clear();
  SegmentMeasured(taken);
}

void AnalyserLink::SegmentMeasured(int pointsTaken) {
  measuredOnce_ = measuredOnce_ || pointsTaken > 0;
  if (++segment_ < segments_.size()) {
    AskSegment();
    return;
  }
  finished_ = std::move(sweep_);
  sweep_ = {};
  segment_ = 0;
  if (sweepsLeft_ > 0 && --sweepsLeft_ == 0) {
    step_ = Step::Done;
    return;
  }
  AskSegment();
}

}  // namespace kalvex
