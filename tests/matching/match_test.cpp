#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>
#include <string>

#include <nlohmann/json.hpp>

#include "command_json.h"
#include "design/network_editor.h"
#include "matching/match.h"
#include "matching/match_text.h"
#include "matching/synthesis.h"
#include "model/calculate.h"
#include "model/reflection.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

Session WithLoad(double r, double x) { return testing::SessionOnLoad(r, x, 14e6); }

// The input impedance of `stages` on `session`'s load at `f` (lossless).
Impedance InputAt(Session session, const std::vector<MatchStage>& stages, double f) {
  for (std::size_t k = 0; k < stages.size(); ++k) {
    session.ElementType[k + 1] = stages[k].type;
    for (int j = 1; j <= kValueSlots; ++j) session.Value[k + 1][j] = stages[k].values[j];
  }
  session.Frequency = f;
  CalculateNetwork(session, 1);
  return {session.InputR, session.InputX};
}

// |Γ| of `stages` on `session`'s load at `f`.
double ReflectionAt(const Session& session, const std::vector<MatchStage>& stages, double f) {
  const Impedance z = InputAt(session, stages, f);
  return PlotImpedance(z.R, z.X, session.SystemZ).rho;
}

// Whether `solution`'s parts vanish at `f`: the input impedance there is the
// load's own.
bool PartsVanishAt(const Session& session, const MatchSolution& solution, double f) {
  const Impedance z = InputAt(session, solution.stages, f);
  const Impedance load{session.Value[0][1], session.Value[0][2]};
  return std::hypot(z.R - load.R, z.X - load.X) < 1e-3 * (std::hypot(load.R, load.X) + session.SystemZ);
}

// Every solution of every kind matches loads all over the chart, with as many
// L networks as exist and four single stubs: two line lengths, each with an
// open and a shorted stub (R = z0 included: its second line is a quarter wave).
// Its labels, in the table and the JSON alike, follow its parts: DC reaches the
// load when they vanish far below the working frequency; a lumped network
// passes the end of the spectrum where they vanish; a line repeats along the
// frequency axis, so a network with one is band-pass.
TEST(Match, EverySolutionMatchesWithTheLabelsItsPartsEarn) {
  struct Case { double r, x; int lNetworks, quarterWaveLines = 0; };
  std::set<std::pair<std::string, bool>> seen;
  std::set<MatchKind> kinds;
  // 10 - j20 lies on the unit-conductance circle: its one shunt-first network
  // is a series-first one without the series part, so two in all.
  for (const Case& c : {Case{25, 80, 4}, Case{100, 50, 2}, Case{100, -50, 2}, Case{10, -20, 2},
                        Case{200, 0, 2}, Case{20, 0, 2}, Case{49, 1, 2}, Case{2, -150, 4},
                        Case{1000, 400, 2}, Case{50, 40, 2, 2}, Case{50, -120, 2, 2}}) {
    const Session session = WithLoad(c.r, c.x);
    const MatchResult result = FindMatches(session, MatchRequest{});
    EXPECT_TRUE(result.refusals.empty());
    const std::string table = MatchTable(session, result);
    const auto json = nlohmann::json::parse(MatchJson(session, result))["solutions"];
    std::size_t row = table.find(" #  kind");
    int lNetworks = 0, stubs = 0, quarterWaveLines = 0;
    for (std::size_t n = 0; n < result.solutions.size(); ++n) {
      const MatchSolution& solution = result.solutions[n];
      const bool lows = PartsVanishAt(session, solution, 14e-3);
      const bool highs = PartsVanishAt(session, solution, 14e15);
      const bool lines = std::any_of(solution.stages.begin(), solution.stages.end(), [](const MatchStage& s) {
        return s.type >= SeriesLine && s.type <= ShuntOpenStub;
      });
      const std::string response = lines || lows == highs ? "band-pass" : lows ? "low-pass" : "high-pass";
      const std::string dc = lows ? "passes" : "blocks";
      const std::string where = std::to_string(c.r) + "+j" + std::to_string(c.x) + " " + MatchPartsText(solution);
      EXPECT_EQ(MatchResponseName(solution.response), response) << where;
      EXPECT_EQ(solution.passesDC, lows) << where;
      row = table.find('\n', row) + 1;
      const std::string line = table.substr(row, table.find('\n', row) - row);
      EXPECT_NE(line.find(" " + response + " "), std::string::npos) << line;
      EXPECT_NE(line.find(" " + dc + " "), std::string::npos) << line;
      EXPECT_EQ(json[n]["response"], response) << where;
      EXPECT_EQ(json[n]["dc"], dc) << where;
      seen.insert({response, lows});
      kinds.insert(solution.kind);
      if (solution.kind == MatchKind::Stub) {
        ++stubs;
        quarterWaveLines += std::fabs(solution.stages.front().values[1] - 90) < 1e-9;
      }
      const Impedance z = InputAt(session, solution.stages, session.Frequency);
      if (solution.kind == MatchKind::Chebyshev) {
        // An equal-ripple transformer is within its ripple at the centre, not exact.
        EXPECT_LE(PlotImpedance(z.R, z.X, 50).rho, 1.03 * RippleReflection(0.1)) << where;
        continue;
      }
      EXPECT_NEAR(z.R, 50, 5e-8) << where;
      EXPECT_NEAR(z.X, 0, 5e-8) << where;
      lNetworks += solution.kind == MatchKind::L ? 1 : 0;
    }
    EXPECT_EQ(std::tuple(lNetworks, stubs, quarterWaveLines), std::tuple(c.lNetworks, 4, c.quarterWaveLines))
        << c.r << "+j" << c.x;
    EXPECT_TRUE(std::is_sorted(result.solutions.begin(), result.solutions.end(),
                               [](const auto& a, const auto& b) { return a.loadedQ < b.loadedQ; }));
  }
  // Every kind, every label and both DC paths came up.
  EXPECT_EQ(kinds.size(), MatchRequest{}.kinds.size());
  EXPECT_EQ(seen.size(), 4u);
}

bool IsSeriesPart(int16_t type) { return type == SeriesCapacitor || type == SeriesInductor; }

// The Pi and T networks reach the loaded Q asked for, with three parts that
// alternate series and shunt; a Q between the two kinds' smallest refuses
// only the kind it is too small for, and every other kind is still listed.
TEST(Match, PiAndTTakeTheLoadedQ) {
  const Session session = WithLoad(200, -30);
  MatchRequest request{.kinds = {MatchKind::Pi, MatchKind::T}, .loadedQ = 5};
  const MatchResult result = FindMatches(session, request);
  EXPECT_EQ(result.solutions.size(), 8u);
  for (const MatchSolution& solution : result.solutions) {
    EXPECT_NEAR(solution.loadedQ, 5, 1e-9);
    ASSERT_EQ(solution.stages.size(), 3u);
    EXPECT_NE(IsSeriesPart(solution.stages[0].type), IsSeriesPart(solution.stages[1].type));
    EXPECT_NE(IsSeriesPart(solution.stages[1].type), IsSeriesPart(solution.stages[2].type));
  }
  // 200 - j30: the smallest T Q is 1.732, the smallest Pi one 1.758.
  const MatchResult between = FindMatches(session, {.loadedQ = 1.75});
  ASSERT_EQ(between.refusals.size(), 1u);
  EXPECT_EQ(between.refusals[0],
            "A loaded Q of 1.75 is too small for a Pi network on this load: the smallest possible is 1.758.");
  for (const MatchKind kind : {MatchKind::L, MatchKind::T, MatchKind::Stub, MatchKind::Chebyshev}) {
    EXPECT_TRUE(std::any_of(between.solutions.begin(), between.solutions.end(),
                            [kind](const MatchSolution& s) { return s.kind == kind; }))
        << MatchKindName(kind);
  }
  // On a real load, at exactly the smallest Q, one part vanishes: that is an
  // L network, not listed again.
  request.loadedQ = std::sqrt(3.0);
  EXPECT_TRUE(FindMatches(WithLoad(200, 0), request).solutions.empty());
  EXPECT_EQ(DefaultLoadedQ({200, -30}, 50), 2 * SmallestPiQ({200, -30}, 50));
  EXPECT_EQ(DefaultLoadedQ({55, 0}, 50), 1);
}

// A matched load needs nothing: no network is listed.
TEST(Match, AMatchedLoadListsNothing) {
  const MatchResult result = FindMatches(WithLoad(50, 1e-12), MatchRequest{});
  EXPECT_TRUE(result.alreadyMatched && result.solutions.empty());
  EXPECT_FALSE(FindMatches(WithLoad(50, 1e-6), MatchRequest{}).alreadyMatched);
}

// The worst VSWR is taken over the sweep when it holds the working frequency,
// else over 10 % either side of it; fitted, the load's reactance follows its
// capacitor, and the figure follows it.
TEST(Match, WorstVSWROverTheBandInView) {
  Session session = WithLoad(25, -40);
  testing::SweepOver(session, 13e6, 15e6, 21);
  MatchRequest request{{MatchKind::L}};
  const MatchResult inSweep = FindMatches(session, request);
  EXPECT_TRUE(inSweep.band.fromSweep);
  EXPECT_EQ(inSweep.band.start, 13e6);
  testing::SweepOver(session, 20e6, 30e6, 21);
  const MatchResult around = FindMatches(session, request);
  EXPECT_FALSE(around.band.fromSweep);
  EXPECT_NEAR(around.band.start, 12.6e6, 1e-3);
  EXPECT_NEAR(around.band.stop, 15.4e6, 1e-3);
  // Its worst: at an end of the band, computed here by hand for the first solution.
  const MatchSolution& first = around.solutions.front();
  request.loadModel = LoadModel::Fitted;
  const MatchSolution fitted = FindMatches(session, request).solutions.front();
  double worstFixed = 0, worstFitted = 0;
  for (const double f : {12.6e6, 15.4e6}) {
    Session trial = session;
    worstFixed = std::max(worstFixed, VSWROf(ReflectionAt(trial, first.stages, f)));
    trial.Value[0][2] = -40 * 14e6 / f;
    worstFitted = std::max(worstFitted, VSWROf(ReflectionAt(trial, fitted.stages, f)));
  }
  EXPECT_NEAR(first.worstVSWR, worstFixed, 0.02 * worstFixed);
  EXPECT_NEAR(fitted.worstVSWR, worstFitted, 0.02 * worstFitted);
  EXPECT_GT(std::fabs(fitted.worstVSWR - first.worstVSWR), 0.01);
}

// The equal-ripple steps as the textbook writes them out for N = 2..5, with
// A = Γm and sec θm = cosh(acosh(|ln(ZL/Z0)| / 2Γm) / N), Z[n+1] = Z[n] e^(2Γn);
// the binomial ones from ln(Z[n+1]/Z[n]) = 2^-N C(N, n) ln(ZL/Z0).
TEST(Match, TransformerSectionsAreTheTextbookOnes) {
  struct Case { int sections; double zl, gammaMax; };
  for (const Case& c : {Case{2, 100, 0.05}, Case{3, 100, 0.05}, Case{4, 100, 0.05}, Case{5, 100, 0.02},
                        Case{4, 12.5, 0.1}, Case{3, 300, 0.15}}) {
    const double lnRatio = std::log(c.zl / 50);
    const double s = std::cosh(std::acosh(std::fabs(lnRatio) / (2 * c.gammaMax)) / c.sections);
    const double a = std::copysign(c.gammaMax, lnRatio);
    std::vector<double> g;
    switch (c.sections) {
      case 2: g = {a * s * s / 2, a * (s * s - 1)}; break;
      case 3: g = {a * std::pow(s, 3) / 2, 3 * a * (std::pow(s, 3) - s) / 2}; break;
      case 4: g = {a * std::pow(s, 4) / 2, 2 * a * (std::pow(s, 4) - s * s), a * (3 * std::pow(s, 4) - 4 * s * s + 1)}; break;
      case 5: g = {a * std::pow(s, 5) / 2, 5 * a * (std::pow(s, 5) - std::pow(s, 3)) / 2, 5 * a * (2 * std::pow(s, 5) - 3 * std::pow(s, 3) + s) / 2}; break;
    }
    const std::vector<double> sections = ChebyshevSections(50, c.zl, c.sections, c.gammaMax);
    ASSERT_EQ(sections.size(), static_cast<std::size_t>(c.sections));
    double z = 50;
    for (int n = 0; n < c.sections; ++n) {
      z *= std::exp(2 * g[static_cast<std::size_t>(std::min(n, c.sections - n))]);
      EXPECT_NEAR(sections[static_cast<std::size_t>(n)], z, 1e-9 * z) << c.sections << " sections, step " << n;
    }
  }
  EXPECT_TRUE(ChebyshevSections(50, 55, 4, 0.05).empty());  // ln(55/50)/2 = 0.048: no ripple to trade
  // Three binomial steps of 1/8, 3/8, 3/8, 1/8 of ln 4 from 50 to 200 ohms.
  const std::vector<double> binomial = BinomialSections(50, 200, 3);
  ASSERT_EQ(binomial.size(), 3u);
  for (std::size_t n = 0; n < 3; ++n) EXPECT_NEAR(binomial[n], 50 * std::pow(4, (1 + 3 * n) / 8.0), 1e-9);
}

// The band around f0 (a fraction of it) over which |Γ| stays at or below `limit`.
double Passband(const Session& session, const std::vector<MatchStage>& stages, double limit) {
  double width = 0;
  for (const double side : {-1.0, 1.0}) {
    double step = 0;
    while (step < 1 && ReflectionAt(session, stages, session.Frequency * (1 + side * step)) <= limit) step += 1e-4;
    width += step;
  }
  return width;
}

// Four sections from a real 100 ohm load to 50 ohms, ripple 0.0458 dB (|Γ| 0.1):
// the equal-ripple transformer holds |Γ| <= Γm over the textbook band
// 2 - 4θm/π, far wider than the binomial one of the same order, and shows its
// ripple's peak at the centre (an even N); the odd N has a zero there.
TEST(Match, ChebyshevPassbandIsTheTextbookOne) {
  const Session session = WithLoad(100, 0);
  const double rippleDb = -10 * std::log10(1 - 0.1 * 0.1);
  const double gammaMax = RippleReflection(rippleDb);
  ASSERT_NEAR(gammaMax, 0.1, 1e-12);
  MatchRequest request{.kinds = {MatchKind::Binomial, MatchKind::Chebyshev}, .rippleDb = rippleDb};
  for (const int n : {3, 4}) {
    request.sections = n;
    std::vector<MatchStage> binomial, chebyshev;
    for (const MatchSolution& s : FindMatches(session, request).solutions) {
      if (s.stages.size() == static_cast<std::size_t>(n)) (s.kind == MatchKind::Binomial ? binomial : chebyshev) = s.stages;
    }
    ASSERT_FALSE(chebyshev.empty()) << n;
    const double thetaM = std::acos(1 / std::cosh(std::acosh(std::log(2.0) / (2 * gammaMax)) / n));
    const double textbook = 2 - 4 * thetaM / std::numbers::pi;
    // Small-reflection theory is a first-order form: the exact ripple peaks
    // stand a little above Γm, so the band is measured a few percent above it.
    const double measured = Passband(session, chebyshev, 1.03 * gammaMax);
    EXPECT_NEAR(measured, textbook, 0.03 * textbook) << n;
    EXPECT_GT(measured, 1.3 * Passband(session, binomial, 1.03 * gammaMax)) << n;
    EXPECT_NEAR(ReflectionAt(session, chebyshev, 14e6), n % 2 == 0 ? gammaMax : 0, 0.01) << n;
  }
  // A ripple of at least the load's own |Gamma| (1 dB: 0.45) leaves none to list, and a note says why.
  request.rippleDb = 1;
  const MatchResult none = FindMatches(session, request);
  EXPECT_TRUE(std::none_of(none.solutions.begin(), none.solutions.end(),
                           [](const MatchSolution& s) { return s.kind == MatchKind::Chebyshev; }));
  ASSERT_EQ(none.notes.size(), 1u);
  EXPECT_NE(none.notes[0].find("at least the load's own mismatch"), std::string::npos);
}

// Behind a feed line and its transformer the load is matched as the
// generator side of the last of them sees it: each solution goes in after
// them, which stay with any part between, and through the real load meets
// the system impedance at the working frequency. A feed part in stage 5
// leaves no room for any solution.
TEST(Match, BeyondCablesAndTransformers) {
  const std::array<double, kSlotCount> rg58 = {0, 30, 50, 0.66, 1.3807, 0.022686};
  const std::array<double, kSlotCount> ratio4 = {0, 4};
  struct Case { std::vector<std::pair<int16_t, std::array<double, kSlotCount>>> kept; double r, x; bool room; } const cases[] = {
      {{{Transformer, {0, 49, 20e-6, 0.2e-6}}, {CoaxialCable, rg58}}, 2450, 300, true},
      {{{SeriesInductor, {0, 1e-6, 100}}, {CoaxialCable, rg58}}, 30, 10, true},
      {{{CoaxialCable, rg58}, {ShuntCapacitor, {0, 30e-12, 500}}, {Transformer, ratio4}}, 12, -40, true},
      {{{Empty, {}}, {Empty, {}}, {Empty, {}}, {Empty, {}}, {Transformer, ratio4}}, 200, 50, false},
  };
  // A Chebyshev transformer of an even number of sections peaks at the
  // working frequency as designed: every other kind is exact there.
  const MatchRequest request{{MatchKind::L, MatchKind::Pi, MatchKind::T, MatchKind::Stub, MatchKind::QuarterWave,
                              MatchKind::Binomial}};
  for (const Case& c : cases) {
    Session session = WithLoad(c.r, c.x);
    const int kept = static_cast<int>(c.kept.size());
    for (int s = 1; s <= kept; ++s) std::tie(session.ElementType[s], session.Value[s]) = c.kept[s - 1];
    if (c.room) session.ElementType[5] = SeriesResistor;  // replaced by a solution
    const MatchResult result = FindMatches(session, request);
    ASSERT_EQ(result.solutions.empty(), !c.room) << kept;
    EXPECT_NE(result.notes.front().find("seen through " + KeptStagesText(kept)), std::string::npos);
    EXPECT_NE(MatchTable(session, result).find("seen through " + KeptStagesText(kept)), std::string::npos);
    for (const MatchSolution& solution : result.solutions) {
      Session applied = session;
      ApplyMatch(applied, solution);
      for (int s = 1; s <= kLastStage; ++s) {
        const std::size_t k = static_cast<std::size_t>(s - kept - 1);
        const int16_t type = s <= kept ? session.ElementType[s] : k < solution.stages.size() ? solution.stages[k].type : int16_t{Empty};
        EXPECT_EQ(applied.ElementType[s], type) << MatchPartsText(solution);
        if (s <= kept) { EXPECT_EQ(applied.Value[s], session.Value[s]); }
        if (k >= solution.stages.size()) continue;
        // Applied through the Accept rules (the default Q for a Q of 0); the solution itself is lossless.
        const StageValues accepted = AcceptedValues(session, type, solution.stages[k].values);
        for (int j = 1; j <= kValueSlots; ++j) EXPECT_EQ(applied.Value[s][j], accepted[j]) << MatchPartsText(solution);
        std::copy(solution.stages[k].values.begin(), solution.stages[k].values.end(), applied.Value[s].begin());
      }
      CalculateNetwork(applied, 1);
      EXPECT_NEAR(applied.InputR, 50, 1e-6) << MatchPartsText(solution);
      EXPECT_NEAR(applied.InputX, 0, 1e-6) << MatchPartsText(solution);
    }
  }
}

}  // namespace
}  // namespace kalvex
