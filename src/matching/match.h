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
  std::vector<MatchStage> stages;  // stage 1, at the load, first; every part lossless
  double loadedQ = 0;              // the largest |X| / R at a node between the stages
  MatchResponse response = MatchResponse::BandPass;
  bool passesDC = false;           // a DC path from the generator to the load
  Impedance input;                 // at the working frequency, the parts with the default Q
  double worstVSWR = 0;            // over the sweep (the settings or the load-data points)
  double bandLow = 0;              // the band worstVSWR is taken over, Hz; equal ends: the
  double bandHigh = 0;             //   working frequency alone
  bool outOfRange = false;         // a value the Design page would not accept as it is
};

// What to compute: the kinds, the loaded Q of the Pi and T networks (0: twice
// the smallest possible), the sections of the multi-section transformers (0:
// 2, 3 and 4) and the Chebyshev passband ripple in dB of insertion loss.
struct MatchRequest {
  std::vector<MatchKind> kinds = {MatchKind::L,          MatchKind::Pi,       MatchKind::T,
                                  MatchKind::Stub,       MatchKind::QuarterWave,
                                  MatchKind::Binomial,   MatchKind::Chebyshev};
  double loadedQ = 0;
  int sections = 0;
  double rippleDb = 0.1;
};

struct MatchResult {
  std::vector<MatchSolution> solutions;  // lowest loaded Q first
  std::vector<std::string> notes;        // a kind that has no solution for this load
  std::string refusal;                   // a loaded Q below the smallest possible
};

// The load the network is matched for: at the working frequency, the
// network's own load, or with load data the point the session uses.
struct MatchLoad {
  Impedance z;
  double frequency = 0;
};
MatchLoad LoadToMatch(const Session& session);

// Every matching network of the requested kinds from the load to the system
// impedance, in closed form, with its figures.
MatchResult FindMatches(const Session& session, const MatchRequest& request);

// Puts `solution` into stages 1..n through the Design page's Accept rules
// (so a Q of 0 becomes the default Q) and empties the stages after it.
void ApplyMatch(Session& session, const MatchSolution& solution);

}  // namespace kalvex
