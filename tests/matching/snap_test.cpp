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
  MatchRequest request{{MatchKind::Pi}};
  request.loadedQ = 3;
  for (const MatchSolution& s : FindMatches(session, request).solutions) {
    if (s.response == MatchResponse::LowPass) ApplyMatch(session, s);
  }
  testing::SweepOver(session, 13.5e6, 15e6, 31);
  return session;
}

double Worst(Session session) { return BandResponse(session).WorstVSWR(session); }

TEST(Snap, NeverWorseThanRoundingAndOnItsSeries) {
  const Session session = MatchedPi();
  ASSERT_EQ(session.ElementType[2], SeriesInductor);
  struct Case { std::vector<int> stages; SeriesChoice series; } const cases[] = {
      {{1, 3}, {}}, {{1, 2, 3}, {ESeries::E6, ESeries::E6, ESeries::E96}}, {{2}, {ESeries::E24, ESeries::E3, ESeries::E96}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.stages.size());
    const SnapResult result = SnapToStandardValues(session, {c.stages, c.series});
    Session rounded = session;
    for (const SnappedPart& p : result.parts) {
      const double nearest = StandardValueNear(p.ideal, c.series.Of(p.part.kind));
      rounded.Value[p.part.stage][p.part.slot] = nearest;
      EXPECT_EQ(NeighboursOf(p.value, c.series.Of(p.part.kind)).below, p.value);
    }
    EXPECT_GE(result.combinations, 1 << result.parts.size());
    EXPECT_NEAR(result.rounded, Worst(rounded), 1e-9);
    EXPECT_LE(result.after, result.rounded + 1e-12);
    Session snapped = session;
    ApplySnapped(snapped, result);
    EXPECT_NEAR(Worst(snapped), result.after, 1e-9);
  }
}

TEST(Snap, AllPartsSnappedIsTheBestOfEveryCombination) {
  const Session session = MatchedPi();
  const SnapResult result = SnapToStandardValues(session, {{1, 2, 3}, {ESeries::E12, ESeries::E12, ESeries::E96}});
  double best = 1e9;
  for (int combination = 0; combination < 8; ++combination) {
    Session trial = session;
    for (int stage = 1; stage <= 3; ++stage) {
      const StandardNeighbours n = NeighboursOf(session.Value[stage][1], ESeries::E12);
      trial.Value[stage][1] = combination >> (stage - 1) & 1 ? n.above : n.below;
    }
    best = std::min(best, Worst(trial));
  }
  EXPECT_LE(result.after, best + 1e-12);
  EXPECT_EQ(result.stages.size(), 3u);
}

// Cables and transformers have no standard values: snap leaves them on
// theirs, and re-tunes the cable's length and the ratio only when asked.
TEST(Snap, FeedPartsStayUnlessFreed) {
  Session session = testing::EndFedNetwork();
  ApplyMatch(session, FindMatches(session, MatchRequest{{MatchKind::L}}).solutions.front());
  for (const bool retune : {false, true}) {
    SnapRequest request{{3, 4}};
    request.retuneFeedParts = retune;
    const SnapResult result = SnapToStandardValues(session, request);
    std::vector<int> stages;
    for (const OptimisedStage& s : result.stages) stages.push_back(s.stage);
    EXPECT_EQ(stages, (retune ? std::vector<int>{3, 4, 1, 2} : std::vector<int>{3, 4}));
  }
}

}  // namespace
}  // namespace kalvex
