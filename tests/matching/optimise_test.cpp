#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <tuple>

#include "analysis/band.h"
#include "matching/match.h"
#include "matching/optimise.h"
#include "matching/search_space.h"
#include "model/calculate.h"
#include "model/reflection.h"
#include "support/end_fed_network.h"
#include "support/hard_matches.h"

namespace kalvex {
namespace {

// The worst return loss of hard case 1 (five parts, high-pass) over 201
// points that a long reference run found (see bench/optimise_bench.cpp).
constexpr double kHardCaseReferenceDb = 20.7467;

// 25 + j80 ohms at 14 MHz with an L network (shunt C, series L) from the
// closed form, each value then made ten times wrong.
Session MistunedL() {
  Session session = testing::SessionOnLoad(25, 80, 14e6);
  for (const MatchSolution& s : FindMatches(session, MatchRequest{{MatchKind::L}}).solutions) {
    if (s.response == MatchResponse::LowPass) ApplyMatch(session, s);
  }
  session.Value[1][1] *= 10;
  session.Value[2][1] /= 10;
  testing::SweepOver(session, 13e6, 15e6, 41);
  return session;
}

// A transformer's ratio and a cable's length are free values too: an
// end-fed's 2450 ohms through a 9:1 transformer and 10 m of lossless 75 ohm
// cable are matched to 50 ohms.
TEST(Optimise, FreesTheTransformerRatioAndTheCableLength) {
  Session session = testing::SessionOnLoad(2450, 0, 7.1e6);
  session.ElementType = {0, Transformer, CoaxialCable};
  session.Value[1] = {0, 9};
  session.Value[2] = {0, 10, 75, 0.66};
  ApplyOptimised(session, Optimise(session, {{1, 2}, false, false}));
  CalculateNetwork(session, 0);
  EXPECT_LT(PlotImpedance(session.InputR, session.InputX, 50).rho, 1e-4);
  EXPECT_NE(session.Value[1][1], 9);
  EXPECT_NE(session.Value[2][1], 10);
}

// A start nothing within reach betters is returned as it is, `after` equal to
// `before`, the start's own worst VSWR: an exact match, a matched line (any
// length as good), the Design page's smallest resistor, and parts nearer to
// nothing than it accepts (1 milliohm; 1 fF, worst at the top of the band).
TEST(Optimise, AStartNothingBettersIsReturnedAsItIs) {
  enum class Goal { Working, Sweep, LoadData };
  const double b = 2 * std::numbers::pi * 15e6 * 1e-15 * 50;  // the capacitor's susceptance at 15 MHz, × 50
  // `reflection`: the start's worst over the goal.
  struct Case { int16_t type; double value, loadR; Goal goal; double reflection; };
  for (const Case& c : {Case{SeriesResistor, 25, 25, Goal::Working, 0}, {SeriesResistor, 25, 25, Goal::Sweep, 0},
                        {SeriesResistor, 25, 25, Goal::LoadData, 0}, {SeriesLine, 30, 50, Goal::Sweep, 0},
                        {SeriesResistor, 1, 50, Goal::Working, 1 / 101.0},
                        {SeriesResistor, 1e-3, 50, Goal::Sweep, 1e-3 / 100.001},
                        {SeriesResistor, 1e-3, 50, Goal::LoadData, 1e-3 / 100.001},
                        {ShuntCapacitor, 1e-15, 50, Goal::Sweep, b / std::hypot(2, b)}}) {
    Session session = testing::SessionOnLoad(c.loadR, 0, 14e6);
    session.LoadSource = c.goal == Goal::LoadData ? 2 : 1;
    session.ElementType[1] = c.type;
    session.Value[1] = {0, c.value, 0, 50};  // a line's length as entered at every frequency, of 50 ohms
    testing::SweepOver(session, 13e6, 15e6, c.goal == Goal::LoadData ? 3 : 5);
    for (int k = 1; k <= 3; ++k) std::tie(session.LoadFreq[k], session.LoadR[k]) = std::pair(12e6 + k * 1e6, c.loadR);
    const OptimiseResult result = Optimise(session, {.freeStages = {1}, .overBand = c.goal != Goal::Working});
    ASSERT_EQ(result.stages.size(), 1u);
    EXPECT_EQ(result.stages[0].values[1], c.value);
    EXPECT_NEAR(result.before, VSWROf(c.reflection), 1e-9) << c.value;
    EXPECT_EQ(result.after, result.before) << c.value;
  }
}

// The worst VSWR over the sweep of `session` with `result` applied, its load as `model` takes it.
double AppliedWorst(Session session, const OptimiseResult& result, LoadModel model = LoadModel::Fixed) {
  ApplyOptimised(session, result);
  return ComputeBandFigures(session, {2}, model).worst.vswr;
}

// A hard band match (five free parts, a load far from 50 ohms, a 29 % band:
// a global stage of 96 scouts instead of 480 ends at 15.4 dB)
// ends within 0.05 dB of the best a long reference run found, and its worst
// VSWR is the one the band figures give for the applied network.
TEST(Optimise, ReachesTheLongRunsBestOnAHardCase) {
  const testing::HardMatch hard = testing::HardMatches(201)[1];
  const OptimiseResult result = Optimise(hard.session, {hard.free, false, true});
  EXPECT_GT(ReturnLossDb((result.after - 1) / (result.after + 1)), kHardCaseReferenceDb - 0.05);
  EXPECT_NEAR(AppliedWorst(hard.session, result), result.after, 1e-9 * result.after);
}

// By default every value stays where parts can be built (a reactance of 0.01
// to 100 times the system impedance); a part the match does not need ends on
// a bound with a negligible reactance, and both are reported. Wide bounds
// let it go further.
TEST(Optimise, PracticalBoundsAndUselessParts) {
  Session session = MistunedL();
  session.Value[1][2] = session.Value[2][2] = 0;
  session.ElementType[3] = SeriesCapacitor;
  session.Value[3][1] = 100e-12;
  const double omega = 2 * std::numbers::pi * 14e6;
  const OptimiseResult practical = Optimise(session, {{1, 2, 3}, false, false});
  ASSERT_EQ(practical.stages.size(), 3u);
  for (const OptimisedStage& stage : practical.stages) {
    const bool capacitor = stage.type == SeriesCapacitor || stage.type == ShuntCapacitor;
    const double reactance = capacitor ? 1 / (omega * stage.values[1]) : omega * stage.values[1];
    EXPECT_GE(reactance, 0.5 * (1 - 1e-9));
    EXPECT_LE(reactance, 5000 * (1 + 1e-9));
  }
  EXPECT_GT(practical.before, 10);
  EXPECT_LT(practical.after, 1.001);
  EXPECT_EQ(OptimisedPartsNote(practical), "");
  // With the L network exact, the series capacitor can only spoil it: it
  // ends as large as the bounds let it, named as negligible and on a bound.
  session.Value[1][1] /= 10;
  session.Value[2][1] *= 10;
  const OptimiseResult useless = Optimise(session, {{3}, false, false});
  EXPECT_NEAR(useless.stages[0].values[1], 1 / (omega * 0.5), 1e-6 / (omega * 0.5));
  EXPECT_EQ(OptimisedPartsNote(useless),
            "Stage 3 (series capacitor) ended on a bound of its range.\n"
            "Stage 3 (series capacitor) has a negligible reactance: it could be left out.\n");
  EXPECT_GT(Optimise(session, {{3}, false, false, true}).stages[0].values[1], 100 / (omega * 0.5));
}

// A stop asked for keeps the best network found so far: never worse than the
// start, and its figure is that network's. The same run stopped at the same
// step ends on the same network.
TEST(Optimise, CancelKeepsTheStoppedRunsBest) {
  const testing::HardMatch hard = testing::HardMatches(101)[2];
  for (const int stopAfter : {1, 50, 3000}) {
    double lastReported = 0;
    const auto run = [&] {
      int calls = 0;
      return Optimise(hard.session, {hard.free, false, true}, [&](int, double worst) {
        lastReported = worst;
        return ++calls < stopAfter;
      });
    };
    const OptimiseResult result = run();
    EXPECT_TRUE(result.cancelled) << stopAfter;
    EXPECT_LE(result.after, result.before) << stopAfter;
    EXPECT_LE(result.after, lastReported) << stopAfter;
    EXPECT_NEAR(AppliedWorst(hard.session, result), result.after, 1e-9 * result.after) << stopAfter;
    EXPECT_EQ(run().stages[0].values, result.stages[0].values) << stopAfter;
  }
}

// Fitted, the search takes the load's reactance as its capacitor gives it at
// each frequency: the band figures with the same model agree with its result,
// and it beats the network tuned for the fixed load on the fitted one.
TEST(Optimise, FollowsTheLoadModel) {
  Session session = MistunedL();
  session.Value[0][2] = -80;
  const OptimiseResult fitted = Optimise(session, {.freeStages = {1, 2}, .loadModel = LoadModel::Fitted});
  EXPECT_NEAR(AppliedWorst(session, fitted, LoadModel::Fitted), fitted.after, 1e-9 * fitted.after);
  EXPECT_GT(AppliedWorst(session, Optimise(session, {{1, 2}, false, true}), LoadModel::Fitted), fitted.after + 0.01);
}

// A free lossy cable stays within half a wavelength of its length; free over
// everything the page takes, it "matches" by growing until its loss hides
// the mismatch, and the loss reported after shows the cost.
TEST(Optimise, AFreeCableStaysNearItsLength) {
  const Session session = testing::EndFedNetwork();
  const double halfWave = 299'792'458 * 0.66 / 14.2e6 / 2;
  for (const auto& [wide, low, high, lossAfter] : {std::tuple(false, 30 - halfWave, 30 + halfWave, 3.0),
                                                  std::tuple(true, 0.01, 1000.0, 1e9)}) {
    const SearchVariable variable = SearchVariables(session, {2}, false, wide).front();
    EXPECT_NEAR(variable.low, low, 1e-9);
    EXPECT_NEAR(variable.high, high, 1e-9);
    const OptimiseResult result = Optimise(session, {{2}, false, true, wide});
    EXPECT_TRUE(result.stages[0].values[1] >= low && result.stages[0].values[1] <= high);
    EXPECT_LT(result.lossBefore.value(), 3);
    EXPECT_LT(result.lossAfter.value(), lossAfter);
    if (wide) { EXPECT_GT(result.lossAfter.value(), 20); }
  }
}

}  // namespace
}  // namespace kalvex
