#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "matching/band_response.h"
#include "matching/match.h"
#include "matching/snap.h"
#include "support/end_fed_network.h"
#include "support/five_stage_network.h"

namespace kalvex {
namespace {

// The five-stage network's load, 36 - j20 ohms at 14.2 MHz, matched instead by a low-pass Pi of loaded Q 3, judged
// over 13.5..15 MHz in 31 points.
Session MatchedPi() {
  Session session = testing::FiveStageNetwork();
  session.ElementType = {};
  for (const MatchSolution& s : FindMatches(session, {.kinds = {MatchKind::Pi}, .loadedQ = 3}).solutions) {
    if (s.response == MatchResponse::LowPass) ApplyMatch(session, s);
  }
  testing::SweepOver(session, 13.5e6, 15e6, 31);
  return session;
}

double Worst(Session session) { return BandResponse(session).WorstVSWR(session); }

// Each chosen part ends on its series, and the network is no worse than any
// combination of the parts' standard values next below and above them (the
// nearest values, rounded, among them).
TEST(Snap, NeverWorseThanAnyCombinationOfTheNeighbours) {
  const Session session = MatchedPi();
  ASSERT_EQ(session.ElementType[2], SeriesInductor);
  struct Case { std::vector<int> stages; SeriesChoice series; } const cases[] = {
      {{1, 3}, {}}, {{1, 2, 3}, {ESeries::E6, ESeries::E6, ESeries::E96}}, {{2}, {ESeries::E24, ESeries::E3, ESeries::E96}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.stages.size());
    const SnapResult result = SnapToStandardValues(session, {c.stages, c.series});
    const std::size_t n = result.parts.size();
    ASSERT_EQ(n, c.stages.size());
    Session rounded = session;
    for (const SnappedPart& p : result.parts) {
      rounded.Value[p.part.stage][p.part.slot] = StandardValueNear(p.ideal, c.series.Of(p.part.kind));
      EXPECT_EQ(NeighboursOf(p.value, c.series.Of(p.part.kind)).below, p.value);
    }
    EXPECT_GE(result.combinations, 1 << n);
    EXPECT_NEAR(result.rounded, Worst(rounded), 1e-9);
    double best = 1e9;
    for (int combination = 0; combination < 1 << n; ++combination) {
      Session trial = session;
      for (std::size_t k = 0; k < n; ++k) {
        const NetworkPart& part = result.parts[k].part;
        const StandardNeighbours around = NeighboursOf(session.Value[part.stage][part.slot], c.series.Of(part.kind));
        trial.Value[part.stage][part.slot] = combination >> k & 1 ? around.above : around.below;
      }
      best = std::min(best, Worst(trial));
    }
    EXPECT_LE(result.after, best + 1e-12);
    Session snapped = session;
    ApplySnapped(snapped, result);
    EXPECT_NEAR(Worst(snapped), result.after, 1e-9);
  }
}

// Cables and transformers have no standard values: snap leaves them on
// theirs, and re-tunes the cable's length and the ratio only when asked.
TEST(Snap, FeedPartsStayUnlessFreed) {
  Session session = testing::EndFedNetwork();
  ApplyMatch(session, FindMatches(session, MatchRequest{{MatchKind::L}}).solutions.front());
  for (const bool retune : {false, true}) {
    const SnapResult result = SnapToStandardValues(session, {.stages = {3, 4}, .series = {}, .retuneFeedParts = retune});
    std::vector<int> stages;
    for (const OptimisedStage& s : result.stages) stages.push_back(s.stage);
    EXPECT_EQ(stages, (retune ? std::vector<int>{3, 4, 1, 2} : std::vector<int>{3, 4}));
  }
}

}  // namespace
}  // namespace kalvex
