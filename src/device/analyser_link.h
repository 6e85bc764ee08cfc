#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "device/measured_sweep.h"
#include "device/reply_lines.h"
#include "device/sweep_plan.h"

namespace kalvex {

// Milliseconds of a steady clock, as the port's owner reads it.
using Milliseconds = int64_t;

// How long the analyser may stay silent while it owes an answer; a scan of 101
// points takes it well under a second.
inline constexpr Milliseconds kAnalyserTimeout = 3000;

// One conversation with a pocket vector network analyser through its text
// shell, without the port itself: the owner of the port writes what
// TakeOutgoing() gives, hands every byte that arrives to Receive(), calls
// CheckTime() now and then and PortLost() when the port fails.
//
// The conversation: wake the shell, ask `version` and `info`, then sweep the
// plan as scans of at most 101 points ("scan START STOP POINTS 3": frequency
// and S11 per line). Firmware whose first scan gives no point is asked the
// old way instead: "sweep START STOP POINTS", then `frequencies` and `data 0`,
// paired line by line. Malformed lines are counted and left out.
class AnalyserLink {
 public:
  // `sweeps`: how many to make; 0 for one after another until the owner stops.
  AnalyserLink(SweepPlan plan, int sweeps, Milliseconds now, Milliseconds timeout = kAnalyserTimeout);

  // The bytes to write to the port now ("" for none).
  std::string TakeOutgoing();
  void Receive(std::string_view bytes, Milliseconds now);
  // Fails the conversation when the analyser owes an answer and has been
  // silent longer than the timeout.
  void CheckTime(Milliseconds now);
  // The port closed or failed: the analyser was unplugged or vanished.
  void PortLost(const std::string& why);

  // A sweep finished since the last call, once.
  std::optional<MeasuredSweep> TakeSweep();

  // The sweeps asked for are made (never, for sweeps until stopped).
  bool Done() const { return step_ == Step::Done; }
  bool Failed() const { return !failure_.empty(); }
  // Why the conversation ended early, as a sentence.
  const std::string& Failure() const { return failure_; }
  // The analyser's `version` answer, and its `info` lines joined.
  const std::string& Version() const { return version_; }
  const std::string& Info() const { return info_; }
  // Whether its firmware takes `scan`; known after the first scan.
  bool TakesScan() const { return takesScan_; }

 private:
  enum class Step { Wake, Version, Info, Scan, SetSweep, Frequencies, Data, Done };

  void Ask(Step step, const std::string& command);
  void Answered(const std::vector<std::string>& lines);
  void ScanAnswered(const std::vector<std::string>& lines);
  void DataAnswered(const std::vector<std::string>& lines);
  void SegmentMeasured(int pointsTaken);
  void AskSegment();
  void Fail(std::string why);
  // Keeps a point of the present segment when it lies in the segment's range
  // above the last one taken; returns whether it was kept.
  bool Take(double frequency, double re, double im);

  std::vector<ScanSegment> segments_;
  int sweepsLeft_;  // 0 for sweeps until stopped
  Milliseconds timeout_;
  Milliseconds lastHeard_;

  Step step_ = Step::Wake;
  ReplyLines reply_;
  std::string outgoing_;
  std::string failure_;
  std::string version_;
  std::string info_;
  bool takesScan_ = true;
  bool scanTried_ = false;
  bool measuredOnce_ = false;  // some segment gave a point: the device measures

  std::size_t segment_ = 0;
  std::vector<std::string> frequencyLines_;  // the old way: `frequencies` until `data 0` answers
  MeasuredSweep sweep_;
  std::optional<MeasuredSweep> finished_;
};

}  // namespace kalvex
