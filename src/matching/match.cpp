#include "matching/match.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "analysis/sweep.h"
#include "matching/synthesis.h"
#include "model/calculate.h"
#include "model/feed_parts.h"
#include "model/format.h"

namespace kalvex {
namespace {

// Lumped parts only: series inductors with shunt capacitors pass the low
// frequencies, series capacitors with shunt inductors the high ones; a mix,
// and anything made of lines (which repeats along the frequency axis), a band.
MatchResponse ResponseOf(const MatchStages& stages) {
  bool low = false;
  bool high = false;
  for (const MatchStage& stage : stages) {
    switch (stage.type) {
      case SeriesInductor: case ShuntCapacitor: low = true; break;
      case SeriesCapacitor: case ShuntInductor: high = true; break;
      default: return MatchResponse::BandPass;
    }
  }
  if (low && !high) return MatchResponse::LowPass;
  if (high && !low) return MatchResponse::HighPass;
  return MatchResponse::BandPass;
}

// DC reaches the load when no series part blocks it and no shunt part shorts it.
bool PassesDC(const MatchStages& stages) {
  for (const MatchStage& stage : stages) {
    switch (stage.type) {
      case SeriesCapacitor: case SeriesOpenStub: case ShuntInductor: case ShuntShortedStub:
        return false;
      default: break;
    }
  }
  return true;
}

// The session's stages before `first`, then the solution's stages, lossless
// or through Accept, and nothing after them.
Session WithStages(const Session& session, const MatchStages& stages, bool accepted, int first) {
  Session trial = session;
  for (int s = first; s <= kLastStage; ++s) {
    trial.ElementType[s] = Empty;
    std::fill(trial.Value[s].begin(), trial.Value[s].end(), 0.0);
  }
  for (std::size_t k = 0; k < stages.size() && first + static_cast<int>(k) <= kLastStage; ++k) {
    const int s = first + static_cast<int>(k);
    const MatchStage& stage = stages[k];
    const StageValues values = accepted ? AcceptedValues(session, stage.type, stage.values) : stage.values;
    trial.ElementType[s] = stage.type;
    for (int j = 1; j <= kValueSlots; ++j) trial.Value[s][j] = values[j];
  }
  return trial;
}

bool IsLumped(MatchKind kind) {
  return kind == MatchKind::L || kind == MatchKind::Pi || kind == MatchKind::T;
}

// The solution's own stages on the load it was computed for, as a fixed
// impedance: its loaded Q is the matching network's, not the feed line's.
Session OnMatchedLoad(const Session& session, const MatchStages& stages) {
  const MatchLoad load = LoadToMatch(session);
  Session trial = WithStages(session, stages, false, 1);
  trial.LoadSource = 1;
  trial.Frequency = load.frequency;
  trial.Value[0][1] = load.z.R;
  trial.Value[0][2] = load.z.X;
  return trial;
}

// The loaded Q of a lumped network: the largest |X| / R of the impedances at
// the nodes after each stage. A network of lines has real impedances at its
// nodes at the working frequency: its loaded Q is that of its input, from the
// slope of the input reactance, ω / 2R · dX/dω.
double LoadedQ(const Session& session, MatchKind kind, const MatchStages& stages) {
  if (!IsLumped(kind)) {
    Session trial = OnMatchedLoad(session, stages);
    const double f = trial.Frequency;
    constexpr double kStep = 1e-6;
    double x[2];
    for (int side = 0; side < 2; ++side) {
      trial.Frequency = f * (side == 0 ? 1 - kStep : 1 + kStep);
      CalculateNetwork(trial, 1);
      x[side] = trial.InputX;
    }
    trial.Frequency = f;
    CalculateNetwork(trial, 1);
    return std::fabs(x[1] - x[0]) / (2 * kStep) / (2 * trial.InputR);
  }
  double q = 0;
  for (std::size_t n = 1; n <= stages.size(); ++n) {
    Session trial = OnMatchedLoad(session, MatchStages(stages.begin(), stages.begin() + n));
    CalculateNetwork(trial, 1);
    q = std::max(q, std::fabs(trial.InputX) / std::max(trial.InputR, 1e-300));
  }
  return q;
}

// A value the Design page's Accept would change (a Q of 0 becomes the default
// Q as intended; anything else changed is outside what the page takes).
bool OutOfRange(const Session& session, const MatchStage& stage) {
  const StageValues accepted = AcceptedValues(session, stage.type, stage.values);
  for (int j = 1; j <= kValueSlots; ++j) {
    const bool qSlot = (j == 2 && stage.type <= ShuntInductor) ||
                       ((j == 2 || j == 4) && (stage.type == ShuntSeriesLC || stage.type == SeriesParallelLC));
    if (!qSlot && accepted[j] != stage.values[j]) return true;
  }
  return false;
}

// Puts into `session` the sweep the worst VSWR is taken over (see MatchBand)
// and says which it is.
constexpr int kBandAroundPoints = 201;
constexpr double kBandAroundFraction = 0.1;
MatchBand BandAround(Session& session, double frequency) {
  if (session.LoadSource == 2) {
    return {session.LoadFreq[1], session.LoadFreq[std::max<int>(session.SweepPoints, 1)], true};
  }
  if (session.SweepPoints >= 2 && session.SweepStart <= frequency && frequency <= session.SweepStop &&
      session.SweepStart < session.SweepStop) {
    return {session.SweepStart, session.SweepStop, true};
  }
  session.SweepStart = frequency * (1 - kBandAroundFraction);
  session.SweepStop = frequency * (1 + kBandAroundFraction);
  session.SweepPoints = kBandAroundPoints;
  return {session.SweepStart, session.SweepStop, false};
}

MatchSolution Evaluate(const Session& session, MatchKind kind, const MatchStages& stages, int firstStage) {
  MatchSolution solution;
  solution.kind = kind;
  solution.stages = stages;
  solution.firstStage = firstStage;
  solution.loadedQ = LoadedQ(session, kind, stages);
  solution.response = ResponseOf(stages);
  solution.passesDC = PassesDC(stages);
  solution.outOfRange = std::any_of(stages.begin(), stages.end(),
                                    [&session](const MatchStage& s) { return OutOfRange(session, s); });
  Session built = WithStages(session, stages, true, firstStage);
  CalculateNetwork(built, built.DataIndex);
  solution.input = {built.InputR, built.InputX};
  const SweepIndexes indexes = RunSweepPoints(built, SweepUse::Table);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    solution.worstVSWR = std::max(solution.worstVSWR, built.SweepVSWR[k]);
  }
  if (indexes.last < indexes.first) {
    solution.worstVSWR = VSWROf(PlotImpedance(solution.input.R, solution.input.X, session.SystemZ).rho);
  }
  return solution;
}

bool SameStages(const MatchStages& a, const MatchStages& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const MatchStage& x, const MatchStage& y) {
    return x.type == y.type && std::equal(x.values.begin(), x.values.end(), y.values.begin(),
                                          [](double u, double v) { return std::fabs(u - v) <= 1e-9 * std::fabs(u); });
  });
}

std::string QText(double q) {
  std::ostringstream text;
  text.precision(4);
  text << q;
  return text.str();
}

// "Matched: the load seen through stages 1 to 2 (coaxial cable, transformer),
// 48.2 -j3.1 ohms; the matching networks go in from stage 3."
std::string SeenThroughText(const Session& session, const MatchLoad& load) {
  const int kept = load.keptStages;
  std::string parts;
  for (int s = 1; s <= kept; ++s) parts += (s > 1 ? ", " : "") + std::string(PartName(session.ElementType[s]));
  return "Matched: the load seen through " + KeptStagesText(kept) + " (" + parts + "), " + QText(load.z.R) +
         (load.z.X < 0 ? " -j" : " +j") + QText(std::fabs(load.z.X)) + " ohms; the matching networks go in from stage " +
         std::to_string(kept + 1) + ", after " + (kept == 1 ? "it" : "them") + ".";
}

std::string TooLongText(MatchKind kind, int kept) {
  if (kept == 0) {
    return std::string("A ") + MatchKindName(kind) + " transformer with its line to the load's real point needs more than the network's " +
           std::to_string(kLastStage) + " stages: left out.";
  }
  return std::string("A ") + MatchKindName(kind) + " match needs more than the " + std::to_string(kLastStage - kept) +
         " stages left after stage " + std::to_string(kept) + ": left out.";
}

}  // namespace

const char* MatchKindName(MatchKind kind) {
  switch (kind) {
    case MatchKind::L: return "L";
    case MatchKind::Pi: return "Pi";
    case MatchKind::T: return "T";
    case MatchKind::Stub: return "stub";
    case MatchKind::QuarterWave: return "quarter-wave";
    case MatchKind::Binomial: return "binomial";
    case MatchKind::Chebyshev: return "chebyshev";
  }
  return "";
}

const char* MatchResponseName(MatchResponse response) {
  switch (response) {
    case MatchResponse::LowPass: return "low-pass";
    case MatchResponse::HighPass: return "high-pass";
    case MatchResponse::BandPass: return "band-pass";
  }
  return "";
}

MatchLoad LoadToMatch(const Session& session) {
  MatchLoad load;
  if (session.LoadSource == 2) {
    const int k = std::clamp<int>(session.DataIndex, 1, kLoadPointCount - 1);
    load.antenna = {session.LoadR[k], session.LoadX[k]};
    load.frequency = session.LoadFreq[k];
  } else {
    load.antenna = {session.Value[0][1], session.Value[0][2]};
    load.frequency = session.Frequency;
  }
  load.keptStages = LastFeedStage(session);
  Session through = session;
  through.Frequency = load.frequency;
  load.z = ThroughStages(through, load.antenna, 1, load.keptStages);
  return load;
}

std::string KeptStagesText(int keptStages) {
  return keptStages == 1 ? "stage 1" : "stages 1 to " + std::to_string(keptStages);
}

double RippleReflection(double rippleDb) { return std::sqrt(1 - std::pow(10.0, -rippleDb / 10)); }

double DefaultLoadedQ(Impedance load, double z0) {
  return std::max(1.0, 2 * std::max(SmallestPiQ(load, z0), SmallestTQ(load, z0)));
}

MatchResult FindMatches(const Session& session, const MatchRequest& request) {
  MatchResult result;
  result.loadModel = request.loadModel;
  const MatchLoad matched = LoadToMatch(session);
  const Impedance load = matched.z;
  const double f = matched.frequency;
  const int firstStage = matched.keptStages + 1;
  const std::size_t room = static_cast<std::size_t>(kLastStage - matched.keptStages);
  const double z0 = session.SystemZ;
  if (matched.keptStages > 0) {
    result.notes.push_back(SeenThroughText(session, matched));
    if (room == 0) {
      result.notes.push_back("No stage is left after stage " + std::to_string(kLastStage) +
                             " for a matching network.");
      return result;
    }
  }
  if (!(load.R > 0) || !(f > 0) || !(z0 > 0) || !std::isfinite(load.X)) {
    result.notes.push_back("No matching network exists for a load without resistance.");
    return result;
  }
  const double loadReflection = PlotImpedance(load.R, load.X, z0).rho;
  if (loadReflection < 1e-9) {
    result.alreadyMatched = true;
    return result;
  }
  Session base = session;
  if (base.LoadSource != 2) base.LoadSource = 1;
  base.DataIndex = base.LoadSource == 2 ? static_cast<int16_t>(base.SweepPoints / 2 + 1) : 1;
  base.SweepLoadModel = request.loadModel;
  result.band = BandAround(base, f);

  const double q = request.loadedQ > 0 ? request.loadedQ : DefaultLoadedQ(load, z0);
  std::vector<int> sectionCounts = {2, 3, 4};
  if (request.sections >= 2 && request.sections <= kMostSections) sectionCounts = {request.sections};
  const double gammaMax = RippleReflection(request.rippleDb);

  for (const MatchKind kind : request.kinds) {
    std::vector<MatchStages> found;
    switch (kind) {
      case MatchKind::L: found = LNetworks(load, z0, f); break;
      case MatchKind::Pi: case MatchKind::T: {
        const double smallest = kind == MatchKind::Pi ? SmallestPiQ(load, z0) : SmallestTQ(load, z0);
        if (q < smallest) {
          result.refusals.push_back("A loaded Q of " + QText(q) + " is too small for a " + MatchKindName(kind) +
                                    " network on this load: the smallest possible is " + QText(smallest) + ".");
          continue;
        }
        found = kind == MatchKind::Pi ? PiNetworks(load, z0, f, q) : TNetworks(load, z0, f, q);
        break;
      }
      case MatchKind::Stub: found = StubMatches(load, z0, f); break;
      case MatchKind::QuarterWave: found = QuarterWaveMatches(load, z0, f); break;
      case MatchKind::Chebyshev:
        if (gammaMax >= loadReflection) {
          result.notes.push_back("No Chebyshev transformer: its ripple (|Gamma| " + QText(gammaMax) +
                                 ") is at least the load's own mismatch (|Gamma| " + QText(loadReflection) +
                                 "); one quarter-wave section does better.");
          continue;
        }
        [[fallthrough]];
      case MatchKind::Binomial:
        for (const int n : sectionCounts) {
          const auto more = kind == MatchKind::Binomial ? BinomialMatches(load, z0, f, n)
                                                        : ChebyshevMatches(load, z0, f, n, gammaMax);
          found.insert(found.end(), more.begin(), more.end());
        }
        break;
    }
    std::vector<MatchStages> distinct;
    bool tooLong = false;
    for (const MatchStages& stages : found) {
      const bool repeated = std::any_of(distinct.begin(), distinct.end(),
                                        [&stages](const MatchStages& d) { return SameStages(d, stages); });
      tooLong = tooLong || stages.size() > room;
      if (!repeated && !stages.empty() && stages.size() <= room) distinct.push_back(stages);
    }
    if (tooLong) result.notes.push_back(TooLongText(kind, matched.keptStages));
    if (distinct.empty() && !tooLong) {
      result.notes.push_back(std::string("No ") + MatchKindName(kind) + " match exists for this load.");
    }
    for (const MatchStages& stages : distinct) result.solutions.push_back(Evaluate(base, kind, stages, firstStage));
  }
  std::stable_sort(result.solutions.begin(), result.solutions.end(),
                   [](const MatchSolution& a, const MatchSolution& b) { return a.loadedQ < b.loadedQ; });
  return result;
}

void ApplyMatch(Session& session, const MatchSolution& solution) {
  const Session built = WithStages(session, solution.stages, true, solution.firstStage);
  session.ElementType = built.ElementType;
  session.Value = built.Value;
}

}  // namespace kalvex
