#include <gtest/gtest.h>

#include <string>

#include "analysis/tabulate.h"
#include "support/sweep_arrays.h"

namespace kalvex {
namespace {

class TabulateTest : public ::testing::Test {
 protected:
  void SetUp() override {
    InitialiseSession(session);
    session.LoadSource = 1;
  }

  void Fill(int k, double f, double r, double x, double rho, double angle, double vswr) {
    testing::FillSweepPoint(session, k, f, r, x, rho, angle, vswr);
  }

  Session session;
};

TEST_F(TabulateTest, HeadingWordsStartAtTheColumns) {
  const std::string heading = kTabulateHeading;
  EXPECT_EQ(heading.size(), 62u);
  for (const std::size_t column : {1, 12, 20, 29, 38, 47, 57}) {
    EXPECT_NE(heading[column], ' ') << column;
    EXPECT_EQ(heading[column - 1], ' ') << column;
  }
}

TEST_F(TabulateTest, PerfectMatchIsShownOnTheImaginaryAxis) {
  session.Frequency = 14e6;
  session.SweepStart = session.SweepStop = 14e6;
  session.SweepPoints = 3;
  const std::vector<std::string> rows = TabulateSweep(session);
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_DOUBLE_EQ(session.SweepRho[0], 5e-13);
  EXPECT_EQ(rows[0], "14 M      50      +0        0        +90       246.02   1         ");
}

TEST_F(TabulateTest, LongValuesPushLaterColumnsRight) {
  Fill(0, 144'123'456, 123'456'789, -123'456'789, 0.99999, -179.999, 1'000'000);
  const std::string row = TabulateRow(session, 0);
  EXPECT_EQ(row, "144.12 M  123.457 M -123.457 M 0.99999 -180    0        1 M       ");
}

TEST_F(TabulateTest, ReactanceAndAngleCarryTheirSign) {
  struct Case {
    double x, angle;
    const char* x_text;
    const char* angle_text;
  };
  for (const Case& c : {Case{-12.5, -30, "-12.5", "-30"}, Case{0, 0, "+0", "+0"},
                        Case{7.25, 45.5, "+7.25", "+45.5"}}) {
    Fill(0, 1e6, 50, c.x, 0.5, c.angle, 3);
    const std::string row = TabulateRow(session, 0);
    EXPECT_EQ(row.substr(18, std::string(c.x_text).size()), c.x_text);
    EXPECT_EQ(row.substr(37, std::string(c.angle_text).size()), c.angle_text);
  }
}

TEST_F(TabulateTest, ZeroRhoIsReplacedSoTheReturnLossIsFinite) {
  Fill(0, 1e6, 50, 0, 0, 0, 1);
  const std::string row = TabulateRow(session, 0);
  EXPECT_EQ(session.SweepRho[0], 1e-9);
  EXPECT_EQ(row.substr(47, 4), "180 ");
}

TEST_F(TabulateTest, TotalReflectionShowsAMillionAndNoReturnLoss) {
  Fill(0, 1e6, 0, 50, 1, 90, 1'000'000);
  const std::string row = TabulateRow(session, 0);
  EXPECT_EQ(row.substr(47, 2), "0 ");
  EXPECT_EQ(row.substr(56, 4), "1 M ");
}

}  // namespace
}  // namespace kalvex
