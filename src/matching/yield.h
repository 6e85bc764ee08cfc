#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

#include "matching/parts.h"
#include "model/session.h"

namespace kalvex {

// How a part's value spreads within its tolerance: evenly, or normally with
// the tolerance at 3σ (the rare part beyond it is rejected by its maker, so
// the draw stays within the tolerance too).
enum class Spread { Uniform, Normal };

// A part's own tolerance in per cent, in place of its kind's, for as long as
// the part at that stage and slot is of that kind.
struct PartTolerance {
  NetworkPart part;
  double percent = 0;
};

struct YieldRequest {
  Tolerances tolerances;
  std::vector<PartTolerance> partTolerances;
  Spread spread = Spread::Uniform;
  int samples = 10'000;
  std::uint64_t seed = 1;
  double goal = 2;   // the worst VSWR over the band a built network must meet
  int threads = 0;   // 0: every core
};

// The spread of the VSWR at one point of the band over the built networks.
struct YieldEnvelopePoint {
  double frequency = 0;
  double nominal = 0;
  double low = 0;     // 5 % of the networks are better than this
  double median = 0;
  double high = 0;    // 95 % are better than this
  double worst = 0;   // the worst of the corners at this point
};

// What one part at either end of its tolerance, the others nominal, does to
// the worst VSWR over the band.
struct PartSpread {
  NetworkPart part;
  double tolerance = 0;  // per cent
  double lowVSWR = 0;
  double highVSWR = 0;
  double change = 0;     // the larger move from the nominal worst VSWR
};

struct YieldResult {
  double yield = 0;       // the share of networks that meet the goal, 0..1
  int samples = 0;
  double nominalWorst = 0;
  double cornersWorst = 0;  // every part at one end or the other
  std::vector<double> sampleWorst;  // each network's worst VSWR, by sample number
  std::vector<YieldEnvelopePoint> envelope;
  std::vector<PartSpread> parts;  // the largest change first
  bool cancelled = false;          // then nothing else is filled in
};

// The tolerance `part` is built with: its own, or its kind's.
double ToleranceOf(const YieldRequest& request, const NetworkPart& part);
// Gives `part` a tolerance of its own.
void SetTolerance(YieldRequest& request, const NetworkPart& part, double percent);

// Builds `request.samples` networks with every part drawn within its
// tolerance and judges each over the band (a part of no tolerance is
// built exact and has no share of the spread) (the sweep's points, or the load
// data's). Sample k's parts come from the seed and k alone, so the figures
// are the same for a seed whatever the number of threads. Each network's VSWR
// at each point is kept for the envelope: samples × points doubles. Setting `cancel`
// stops the run at its next block of corners or samples.
YieldResult ComputeYield(const Session& session, const YieldRequest& request,
                         const std::atomic<bool>* cancel = nullptr);

}  // namespace kalvex
