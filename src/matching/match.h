#pragma once

#include <string>
#include <vector>

#include "design/network_editor.h"
#include "model/elements.h"
#include "model/session.h"

namespace kalvex {

// The kinds of matching network Kalvex computes for a load.
enum class MatchKind { L, Pi, T, Stub, QuarterWave, Binomial, Chebyshev };

// "L", "Pi", "T", "stub", "quarter-wave", "binomial", "chebyshev".
const char* MatchKindName(MatchKind kind);

enum class MatchResponse { LowPass, HighPass, BandPass };
const char* MatchResponseName(MatchResponse response);  // "low-pass", ...

// One stage of a solution: its element type and values 1..4 as the network
// file stores them (lines and stubs in degrees at the working frequency).
struct MatchStage {
  int16_t type = Empty;
  StageValues values{};
};

struct MatchSolution {
  MatchKind kind = MatchKind::L;
  std::vector<MatchStage> stages;  // the one nearest the load first; every part lossless
  int firstStage = 1;              // where it goes: after the feed parts, which stay
  double loadedQ = 0;              // the largest |X| / R at a node between the stages
  MatchResponse response = MatchResponse::BandPass;
  bool passesDC = false;           // a DC path from the generator to the load
  Impedance input;                 // at the working frequency, the parts with the default Q
  double worstVSWR = 0;            // over the result's band
  bool outOfRange = false;         // a value the Design page would not accept as it is
};

// What to compute: the kinds, the loaded Q of the Pi and T networks (0: the
// default, DefaultLoadedQ), the sections of the multi-section transformers
// (0: 2, 3 and 4; up to 7), the Chebyshev passband ripple as the largest
// mismatch loss in dB over the passband (RippleReflection gives its |Γ|), and
// how the worst VSWR takes the load over the band.
struct MatchRequest {
  std::vector<MatchKind> kinds = {MatchKind::L,          MatchKind::Pi,       MatchKind::T,
                                  MatchKind::Stub,       MatchKind::QuarterWave,
                                  MatchKind::Binomial,   MatchKind::Chebyshev};
  double loadedQ = 0;
  int sections = 0;
  double rippleDb = 0.1;
  LoadModel loadModel = LoadModel::Fixed;
};

inline constexpr int kMostSections = 7;

// |Γ| = sqrt(1 - 10^(-dB/10)): 0.1 dB is |Γ| 0.1526.
double RippleReflection(double rippleDb);

// Twice the larger of the smallest Pi and smallest T loaded Q, and at least 1.
double DefaultLoadedQ(Impedance load, double z0);

// The band the worst VSWR is taken over: the load-data points, or the sweep
// settings when they hold the working frequency, else 10 % either side of it.
struct MatchBand {
  double start = 0;
  double stop = 0;
  bool fromSweep = true;
};

struct MatchResult {
  std::vector<MatchSolution> solutions;  // lowest loaded Q first
  std::vector<std::string> notes;        // a kind that has no solution for this load, and why
  std::vector<std::string> refusals;     // a kind refused: a loaded Q below its smallest possible
  bool alreadyMatched = false;           // |Γ| of the load below 1e-9: nothing to list
  MatchBand band;
  LoadModel loadModel = LoadModel::Fixed;
};

// The load the network is matched for at the working frequency: the
// antenna's (the network's own load, or with load data the point the session
// uses), seen through stages 1..keptStages. Those are the stages up to the
// last cable or transformer (see LastFeedStage), whatever else they hold: a
// feed line and its transformer are where the installation puts them, so a
// matching network goes on their generator side and they stay. Without feed
// parts nothing is kept and z is the antenna's own.
struct MatchLoad {
  Impedance z;
  double frequency = 0;
  Impedance antenna;
  int keptStages = 0;
};
MatchLoad LoadToMatch(const Session& session);

// "stage 1" or "stages 1 to 3": the kept stages in texts.
std::string KeptStagesText(int keptStages);

// Every matching network of the requested kinds from the load to the system
// impedance, in closed form, with its figures (the band's through the kept
// stages at each frequency). A kind that cannot be made, or needs more stages
// than are left after the kept ones, is a note or a refusal; the other kinds
// go on.
MatchResult FindMatches(const Session& session, const MatchRequest& request);

// Keeps the stages before the solution's first, puts `solution` into the
// stages from there through the Design page's Accept rules (so a Q of 0
// becomes the default Q) and empties the stages after it.
void ApplyMatch(Session& session, const MatchSolution& solution);

}  // namespace kalvex
