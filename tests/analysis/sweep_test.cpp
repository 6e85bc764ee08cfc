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
    session.Value[0][1] = 60;
    session.Value[0][2] = -20;
    session.ElementType[1] = SeriesInductor;
    session.Value[1][1] = 1.2e-6;
    session.Value[1][2] = 200;
    session.ElementType[2] = ShuntCapacitor;
    session.Value[2][1] = 150e-12;
    session.Value[2][2] = 1000;
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

  Session session;
};

TEST_F(SweepTest, ManualPointsAreEvenlySpacedFromStartToStop) {
  session.SweepStart = 1e6;
  session.SweepStop = 2e6;
  session.SweepPoints = 11;
  const SweepIndexes indexes = RunSweepPoints(session, SweepUse::Chart);
  EXPECT_EQ(indexes.first, 0);
  EXPECT_EQ(indexes.last, 10);
  for (int k = 0; k <= 10; ++k) EXPECT_DOUBLE_EQ(session.SweepFreq[k], 1e6 + k * 1e5) << k;
  EXPECT_EQ(session.SweepFreq[10], 2e6);  // exactly on the stop
}

TEST_F(SweepTest, StoresWhatTheCalculationGives) {
  session.SweepStart = 13e6;
  session.SweepStop = 15e6;
  session.SweepPoints = 5;
  RunSweepPoints(session, SweepUse::Chart);

  Session single = session;
  single.Frequency = 14.5e6;
  CalculateNetwork(single, 0);
  EXPECT_EQ(session.SweepR[3], single.InputR);
  EXPECT_EQ(session.SweepX[3], single.InputX);
  const double r = single.InputR / 50, x = single.InputX / 50;
  const double d = (r + 1) * (r + 1) + x * x;
  const double u = (r * r + x * x - 1) / d, v = 2 * x / d;
  EXPECT_DOUBLE_EQ(session.SweepRho[3], std::hypot(u, v));
  EXPECT_DOUBLE_EQ(session.SweepAngle[3], std::atan2(v, u) * 180 / std::numbers::pi);
  const double rho = session.SweepRho[3];
  EXPECT_DOUBLE_EQ(session.SweepVSWR[3], (1 + rho) / (1 - rho));
}

TEST_F(SweepTest, LoadDataSweepFillsTheTableIndexes) {
  LoadTable(7);
  session.SweepFreq[0] = -1;
  session.SweepFreq[8] = -1;
  const SweepIndexes indexes = RunSweepPoints(session, SweepUse::Chart);
  EXPECT_EQ(indexes.first, 1);
  EXPECT_EQ(indexes.last, 7);
  for (int k = 1; k <= 7; ++k) EXPECT_EQ(session.SweepFreq[k], session.LoadFreq[k]);
  EXPECT_EQ(session.SweepFreq[0], -1);
  EXPECT_EQ(session.SweepFreq[8], -1);

  // Point 4 is the network on that point's own load and frequency.
  Session single = session;
  single.LoadSource = 1;
  single.Value[0] = {session.LoadR[4], session.LoadR[4], session.LoadX[4]};
  single.Frequency = session.LoadFreq[4];
  CalculateNetwork(single, 0);
  EXPECT_EQ(session.SweepR[4], single.InputR);
  EXPECT_EQ(session.SweepX[4], single.InputX);
}

TEST_F(SweepTest, TableSweepPointsDataIndexAtTheMiddle) {
  LoadTable(7);
  RunSweepPoints(session, SweepUse::Table);
  EXPECT_EQ(session.DataIndex, 4);
  SetUp();
  session.SweepPoints = 7;
  RunSweepPoints(session, SweepUse::Table);
  EXPECT_EQ(session.DataIndex, 1);
}

TEST_F(SweepTest, OnlyTheTableCapsTheVSWR) {
  // A lossless load far off the system impedance: Rho just below 1.
  session.ElementType[1] = Empty;
  session.ElementType[2] = Empty;
  session.Value[0][1] = 1e-5;
  session.Value[0][2] = 0;
  session.SweepStart = session.SweepStop = 14e6;
  session.SweepPoints = 3;
  RunSweepPoints(session, SweepUse::Chart);
  EXPECT_GT(session.SweepVSWR[0], 1e6);
  RunSweepPoints(session, SweepUse::Table);
  EXPECT_EQ(session.SweepVSWR[0], 1e6);
}

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
