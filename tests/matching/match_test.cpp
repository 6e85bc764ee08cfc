#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include <nlohmann/json.hpp>

#include "command_json.h"
#include "matching/match.h"
#include "matching/match_text.h"
#include "matching/synthesis.h"
#include "model/calculate.h"

namespace kalvex {
namespace {

Session WithLoad(double r, double x) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = 14e6;
  session.SystemZ = 50;
  session.Value[0][1] = r;
  session.Value[0][2] = x;
  return session;
}

// The input impedance of `solution`'s stages as they are (lossless).
Impedance InputOf(Session session, const MatchSolution& solution) {
  for (std::size_t k = 0; k < solution.stages.size(); ++k) {
    session.ElementType[k + 1] = solution.stages[k].type;
    for (int j = 1; j <= kValueSlots; ++j) session.Value[k + 1][j] = solution.stages[k].values[j];
  }
  CalculateNetwork(session, 1);
  return {session.InputR, session.InputX};
}

// Whether `solution`'s parts vanish at `f`: the input impedance there is the
// load's own.
bool PartsVanishAt(Session session, const MatchSolution& solution, double f) {
  session.Frequency = f;
  const Impedance z = InputOf(session, solution);
  const Impedance load{session.Value[0][1], session.Value[0][2]};
  return std::hypot(z.R - load.R, z.X - load.X) < 1e-3 * (std::hypot(load.R, load.X) + session.SystemZ);
}

// Each solution's labels against what its parts do in the calculation: DC
// reaches the load when the parts vanish far below the working frequency; a
// lumped network passes the end of the spectrum where its parts vanish, one
// with a line is band-pass (a line repeats along the frequency axis). The
// table and the JSON write the same labels.
TEST(Match, ResponseAndDCPathFollowTheParts) {
  std::set<std::pair<std::string, bool>> seen;
  std::set<MatchKind> kinds;
  for (const auto& [r, x] : {std::pair{25.0, 80.0}, {100, -50}, {10, -20}, {200, 0}, {2, -150}, {1000, 400}}) {
    const Session session = WithLoad(r, x);
    const MatchResult result = FindMatches(session, MatchRequest{});
    const std::string table = MatchTable(session, result);
    const auto json = nlohmann::json::parse(MatchJson(session, result))["solutions"];
    std::size_t row = table.find(" #  kind");
    for (std::size_t n = 0; n < result.solutions.size(); ++n) {
      const MatchSolution& solution = result.solutions[n];
      const bool lows = PartsVanishAt(session, solution, 14e-3);
      const bool highs = PartsVanishAt(session, solution, 14e15);
      const bool lines = std::any_of(solution.stages.begin(), solution.stages.end(), [](const MatchStage& s) {
        return s.type >= SeriesLine && s.type <= ShuntOpenStub;
      });
      const std::string response = lines || lows == highs ? "band-pass" : lows ? "low-pass" : "high-pass";
      const std::string dc = lows ? "passes" : "blocks";
      const std::string where = std::to_string(r) + "+j" + std::to_string(x) + " " + MatchPartsText(solution);
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
    }
  }
  // Every kind, every label and both DC paths came up.
  EXPECT_EQ(kinds.size(), MatchRequest{}.kinds.size());
  EXPECT_EQ(seen.size(), 4u);
}

// Every solution of every kind turns the load into the system impedance, for
// loads inductive and capacitive, above and below it, near the centre and
// near the rim; the L networks number as many as exist.
TEST(Match, EverySolutionMatchesExactly) {
  struct Case {
    double r, x;
    int lNetworks;
  };
  // 10 - j20 lies on the unit-conductance circle: its one shunt-first network
  // is a series-first one without the series part, so two in all.
  for (const Case& c : {Case{25, 80, 4}, Case{100, 50, 2}, Case{100, -50, 2}, Case{10, -20, 2},
                        Case{200, 0, 2}, Case{20, 0, 2}, Case{49, 1, 2}, Case{2, -150, 4},
                        Case{1000, 400, 2}}) {
    const Session session = WithLoad(c.r, c.x);
    const MatchResult result = FindMatches(session, MatchRequest{});
    EXPECT_EQ(result.refusal, "");
    int lNetworks = 0;
    for (const MatchSolution& solution : result.solutions) {
      const Impedance z = InputOf(session, solution);
      EXPECT_NEAR(z.R, 50, 5e-8) << c.r << "+j" << c.x << " " << MatchKindName(solution.kind);
      EXPECT_NEAR(z.X, 0, 5e-8) << c.r << "+j" << c.x << " " << MatchKindName(solution.kind);
      lNetworks += solution.kind == MatchKind::L ? 1 : 0;
    }
    EXPECT_EQ(lNetworks, c.lNetworks) << c.r << "+j" << c.x;
    EXPECT_TRUE(std::is_sorted(result.solutions.begin(), result.solutions.end(),
                               [](const auto& a, const auto& b) { return a.loadedQ < b.loadedQ; }));
  }
}

// The Pi and T networks reach the loaded Q asked for; below the smallest
// possible they are refused, naming it.
TEST(Match, PiAndTTakeTheLoadedQ) {
  const Session session = WithLoad(200, -30);
  MatchRequest request;
  request.kinds = {MatchKind::Pi, MatchKind::T};
  request.loadedQ = 5;
  const MatchResult result = FindMatches(session, request);
  EXPECT_EQ(result.solutions.size(), 8u);
  for (const MatchSolution& solution : result.solutions) EXPECT_NEAR(solution.loadedQ, 5, 1e-9);
  request.loadedQ = 0.5;
  request.kinds = {MatchKind::T};
  EXPECT_EQ(FindMatches(session, request).refusal,
            "A loaded Q of 0.5 is too small for a T network on this load: the smallest possible is 1.732.");
}

TEST(Match, MultiSectionImpedancesFromTheirClosedForms) {
  const std::vector<double> binomial = BinomialSections(50, 200, 3);
  // ln(Z[n+1]/Z[n]) = 2^-N C(N, n) ln(ZL/Z0): steps of 1/8, 3/8, 3/8, 1/8 of ln 4.
  ASSERT_EQ(binomial.size(), 3u);
  EXPECT_NEAR(binomial[0], 50 * std::pow(4, 1.0 / 8), 1e-9);
  EXPECT_NEAR(binomial[1], 50 * std::pow(4, 4.0 / 8), 1e-9);
  EXPECT_NEAR(binomial[2], 50 * std::pow(4, 7.0 / 8), 1e-9);
  // A Chebyshev transformer's steps are symmetric about the middle.
  const std::vector<double> chebyshev = ChebyshevSections(50, 200, 2, 0.1);
  EXPECT_NEAR(chebyshev[0] * chebyshev[1], 50 * 200, 1e-6);
  EXPECT_GT(chebyshev[0], binomial[0]);
}

// Applying puts the parts in the first stages through the Accept rules (the
// default Q for a Q of 0) and empties the rest.
TEST(Match, ApplyFillsTheStages) {
  Session session = WithLoad(25, 80);
  session.ElementType[4] = SeriesResistor;
  session.Value[4][1] = 10;
  const MatchSolution solution = FindMatches(session, MatchRequest{{MatchKind::L}}).solutions.front();
  ApplyMatch(session, solution);
  EXPECT_EQ(session.ElementType[1], solution.stages[0].type);
  EXPECT_EQ(session.Value[1][1], solution.stages[0].values[1]);
  EXPECT_EQ(session.Value[1][2], session.ElementType[1] <= ShuntCapacitor ? 1000 : 200);
  EXPECT_EQ(session.ElementType[4], Empty);
}

}  // namespace
}  // namespace kalvex
