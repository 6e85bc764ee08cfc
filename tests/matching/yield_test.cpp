#include <gtest/gtest.h>

#include <cmath>

#include "matching/yield.h"
#include "support/five_stage_network.h"

namespace kalvex {
namespace {

// A 25-ohm load behind one series part at 10 MHz. With a series resistor R the
// VSWR is (25 + R) / 50, so it meets 1.5 for R up to 50 ohms; with a lossless
// series inductor on a 50-ohm load it meets 2 while ωL stays under 50/√2.
Session OnePart(int16_t type, double value) {
  Session session = testing::SessionOnLoad(type == SeriesResistor ? 25 : 50, 0, 10e6);
  session.ElementType[1] = type;
  session.Value[1] = {0, value, 1e15};
  testing::SweepOver(session, 9.9e6, 10e6, 11);
  return session;
}

TEST(Yield, ShareOfTheToleranceOnTheGoodSide) {
  const double crossingL = std::sqrt(0.5) * 50 / (2 * M_PI * 10e6);
  // Normal: σ 1.6 ohm about 48, cut at 3σ: P(z < 1.25 | |z| < 3).
  const double normalShare = (0.5 * std::erfc(-1.25 / std::sqrt(2)) - 0.0013499) / (1 - 2 * 0.0013499);
  struct Case { int16_t type; double value; Spread spread; double goal, expected; } const cases[] = {
      {SeriesResistor, 48, Spread::Uniform, 1.5, (50 - 43.2) / 9.6},
      {SeriesResistor, 48, Spread::Normal, 1.5, normalShare},
      {SeriesInductor, 540e-9, Spread::Uniform, 2, (crossingL - 486e-9) / 108e-9},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.type);
    YieldRequest request;
    request.tolerances.resistor = request.tolerances.inductor = 10;
    request.spread = c.spread;
    request.goal = c.goal;
    const YieldResult result = ComputeYield(OnePart(c.type, c.value), request);
    // Four standard errors of a 10,000-sample share.
    EXPECT_NEAR(result.yield, c.expected, 4 * std::sqrt(c.expected * (1 - c.expected) / 10'000));
  }
}

TEST(Yield, EachPartAtItsEndsAndTheCorners) {
  YieldRequest request;
  request.tolerances.resistor = 10;
  request.samples = 500;
  const YieldResult result = ComputeYield(OnePart(SeriesResistor, 48), request);
  ASSERT_EQ(result.parts.size(), 1u);
  EXPECT_NEAR(result.nominalWorst, 73.0 / 50, 1e-9);
  EXPECT_NEAR(result.parts[0].lowVSWR, 68.2 / 50, 1e-9);
  EXPECT_NEAR(result.parts[0].highVSWR, 77.8 / 50, 1e-9);
  EXPECT_NEAR(result.cornersWorst, 77.8 / 50, 1e-9);
  // R uniform in 43.2..52.8: its 5, 50 and 95 % points at every frequency.
  const YieldEnvelopePoint& point = result.envelope.front();
  EXPECT_NEAR(point.low, (25 + 43.68) / 50, 0.01);
  EXPECT_NEAR(point.median, 73.0 / 50, 0.01);
  EXPECT_NEAR(point.high, (25 + 52.32) / 50, 0.01);
  // Kept to seven digits and never above what the samples reach: with the
  // part exact, each figure is the nominal VSWR.
  request.tolerances.resistor = 0;
  for (const YieldEnvelopePoint& p : ComputeYield(OnePart(SeriesResistor, 48), request).envelope) {
    for (const double figure : {p.low, p.median, p.high}) {
      EXPECT_LE(figure, p.worst);
      EXPECT_NEAR(figure, p.nominal, 1e-7 * p.nominal);
    }
  }
}

TEST(Yield, SameSeedSameFiguresOnAnyNumberOfThreads) {
  Session session = testing::FiveStageNetwork();
  testing::SweepOver(session, 13.5e6, 15e6, 41);
  YieldRequest request;
  request.samples = 1000;
  request.seed = 7;
  request.threads = 1;
  const YieldResult one = ComputeYield(session, request);
  request.threads = 3;
  const YieldResult three = ComputeYield(session, request);
  EXPECT_EQ(one.sampleWorst, three.sampleWorst);
  EXPECT_EQ(one.yield, three.yield);
  EXPECT_EQ(one.envelope.back().high, three.envelope.back().high);
  request.seed = 8;
  EXPECT_NE(ComputeYield(session, request).sampleWorst, one.sampleWorst);

  // The ranking, the envelope and the corners bound what the samples reach.
  for (std::size_t p = 1; p < one.parts.size(); ++p) EXPECT_GE(one.parts[p - 1].change, one.parts[p].change);
  EXPECT_EQ(one.parts.size(), 5u);
  for (const double worst : one.sampleWorst) EXPECT_LE(worst, one.cornersWorst + 1e-9);
  for (const YieldEnvelopePoint& p : one.envelope) {
    EXPECT_LE(p.low, p.median);
    EXPECT_LE(p.median, p.high);
    EXPECT_LE(p.high, p.worst);
  }
}

// A part's own tolerance replaces its kind's while the part at that stage and
// slot stays of that kind; setting it again replaces it.
TEST(Yield, APartsOwnToleranceHoldsForThatPartAlone) {
  YieldRequest request;
  const NetworkPart capacitor{2, 1, PartKind::Capacitor};
  SetTolerance(request, capacitor, 10);
  SetTolerance(request, capacitor, 20);
  const struct { NetworkPart part; double expected; } cases[] = {
      {capacitor, 20},
      {{2, 1, PartKind::Inductor}, 5},   // the stage now holds an inductor
      {{2, 3, PartKind::Capacitor}, 5},  // the other part of an LC stage
      {{3, 1, PartKind::Capacitor}, 5},
      {{4, 1, PartKind::Resistor}, 1}};
  for (const auto& c : cases) {
    EXPECT_EQ(ToleranceOf(request, c.part), c.expected) << c.part.stage << "/" << c.part.slot;
  }
  EXPECT_EQ(request.partTolerances.size(), 1u);
}

TEST(Yield, CancelledRunsReportNothing) {
  const std::atomic<bool> cancel{true};
  const YieldResult result = ComputeYield(OnePart(SeriesResistor, 48), YieldRequest{}, &cancel);
  EXPECT_TRUE(result.cancelled);
  EXPECT_TRUE(result.sampleWorst.empty());
}

}  // namespace
}  // namespace kalvex
