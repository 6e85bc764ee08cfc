#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "analysis/sweep.h"
#include "model/calculate.h"

namespace kalvex {
namespace {

class SweepTest : public ::testing::Test {
 protected:
  void SetUp() override {
    InitialiseSession(session);
    session.LoadSource = 1;
    session.Value[0] = {0, 60, -20};
    session.ElementType = {0, SeriesInductor, ShuntCapacitor};
    session.Value[1] = {0, 1.2e-6, 200};
    session.Value[2] = {0, 150e-12, 1000};
    session.Frequency = 14.2e6;
  }
  void LoadTable(int points) {
    session.LoadSource = 2;
    session.SweepPoints = static_cast<int16_t>(points);
    for (int k = 1; k <= points; ++k) {
      session.LoadFreq[k] = 13e6 + k * 0.1e6;
      session.LoadR[k] = 40 + k;
      session.LoadX[k] = -10 + 3 * k;
    }
  }
  // The network's input impedance at one frequency on one load.
  std::pair<double, double> Single(double frequency, double r, double x) const {
    Session single = session;
    single.LoadSource = 1;
    single.Value[0] = {0, r, x};
    single.Frequency = frequency;
    CalculateNetwork(single, 0);
    return {single.InputR, single.InputX};
  }

  Session session;
};

// Evenly spaced from start to stop, each point what the calculation gives,
// with its reflection worked out here.
TEST_F(SweepTest, ManualPointsStoreWhatTheCalculationGives) {
  session.SweepStart = 13e6;
  session.SweepStop = 15e6;
  session.SweepPoints = 5;
  const SweepIndexes indexes = RunSweepPoints(session, SweepUse::Chart);
  EXPECT_EQ(std::pair(indexes.first, indexes.last), std::pair(0, 4));
  for (int k = 0; k <= 4; ++k) EXPECT_DOUBLE_EQ(session.SweepFreq[k], 13e6 + k * 0.5e6) << k;
  EXPECT_EQ(session.SweepFreq[4], 15e6);  // exactly on the stop
  const auto [inputR, inputX] = Single(14.5e6, 60, -20);
  EXPECT_EQ(session.SweepR[3], inputR);
  EXPECT_EQ(session.SweepX[3], inputX);
  const double r = inputR / 50, x = inputX / 50;
  const double d = (r + 1) * (r + 1) + x * x;
  const double u = (r * r + x * x - 1) / d, v = 2 * x / d;
  EXPECT_DOUBLE_EQ(session.SweepRho[3], std::hypot(u, v));
  EXPECT_DOUBLE_EQ(session.SweepAngle[3], std::atan2(v, u) * 180 / std::numbers::pi);
  const double rho = session.SweepRho[3];
  EXPECT_DOUBLE_EQ(session.SweepVSWR[3], (1 + rho) / (1 - rho));
}

// A load-data sweep fills the table's indexes 1..n, each point the network on
// that point's own load and frequency; the table sweep takes the middle point.
TEST_F(SweepTest, LoadDataSweepFillsTheTableIndexes) {
  LoadTable(7);
  session.SweepFreq[0] = session.SweepFreq[8] = -1;
  const SweepIndexes indexes = RunSweepPoints(session, SweepUse::Chart);
  EXPECT_EQ(std::pair(indexes.first, indexes.last), std::pair(1, 7));
  for (int k = 1; k <= 7; ++k) EXPECT_EQ(session.SweepFreq[k], session.LoadFreq[k]);
  EXPECT_EQ(session.SweepFreq[0], -1);
  EXPECT_EQ(session.SweepFreq[8], -1);
  const auto [inputR, inputX] = Single(session.LoadFreq[4], session.LoadR[4], session.LoadX[4]);
  EXPECT_EQ(session.SweepR[4], inputR);
  EXPECT_EQ(session.SweepX[4], inputX);
  RunSweepPoints(session, SweepUse::Table);
  EXPECT_EQ(session.DataIndex, 4);
}

TEST_F(SweepTest, OnlyTheTableCapsTheVSWR) {
  // A lossless load far off the system impedance: Rho just below 1.
  session.ElementType = {};
  session.Value[0] = {0, 1e-5, 0};
  session.SweepStart = session.SweepStop = 14e6;
  session.SweepPoints = 3;
  RunSweepPoints(session, SweepUse::Chart);
  EXPECT_GT(session.SweepVSWR[0], 1e6);
  RunSweepPoints(session, SweepUse::Table);
  EXPECT_EQ(session.SweepVSWR[0], 1e6);
  EXPECT_EQ(session.DataIndex, 1);
}

// One point sweeps the start alone, no points nothing, and counts beyond the
// arrays stay inside them.
TEST_F(SweepTest, CountsBeyondTheArraysStayInside) {
  session.SweepStart = 1e6;
  session.SweepStop = 2e6;
  session.SweepPoints = 1;
  const SweepIndexes one = RunSweepPoints(session, SweepUse::Chart);
  EXPECT_EQ(one.last, one.first);
  EXPECT_EQ(session.SweepFreq[one.first], 1e6);
  session.SweepPoints = -4;
  const SweepIndexes negative = RunSweepPoints(session, SweepUse::Chart);
  EXPECT_GT(negative.first, negative.last);
  session.SweepPoints = 30000;
  EXPECT_EQ(RunSweepPoints(session, SweepUse::Chart).last, 1999);
  LoadTable(1000);
  session.SweepPoints = 5000;
  EXPECT_EQ(RunSweepPoints(session, SweepUse::Chart).last, 1000);
  session.LoadSource = 0;
  const SweepIndexes none = RunSweepPoints(session, SweepUse::Chart);
  EXPECT_GT(none.first, none.last);
}

}  // namespace
}  // namespace kalvex
