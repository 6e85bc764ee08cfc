#include <gtest/gtest.h>

#include <string>

#include "analysis/tabulate.h"
#include "support/sweep_arrays.h"

namespace kalvex {
namespace {

TEST(Tabulate, HeadingWordsStartAtTheColumns) {
  const std::string heading = kTabulateHeading;
  EXPECT_EQ(heading.size(), 62u);
  for (const std::size_t column : {1, 12, 20, 29, 38, 47, 57}) {
    EXPECT_NE(heading[column], ' ') << column;
    EXPECT_EQ(heading[column - 1], ' ') << column;
  }
}

// Rows in the heading's columns: signed reactance and angle, a Rho of 0
// replaced so that the return loss is finite, total reflection with no
// return loss, and long values pushing later columns right.
TEST(Tabulate, RowsStandInTheHeadingsColumns) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  struct Case {
    std::array<double, 6> point;  // frequency, R, X, Rho, angle, VSWR
    const char* row;
  };
  for (const Case& c :
       {Case{{1e6, 50, -12.5, 0.5, -30, 3}, "1 M       50      -12.5     0.5      -30       6.0206   3         "},
        Case{{1e6, 50, 0, 0.5, 0, 3}, "1 M       50      +0        0.5      +0        6.0206   3         "},
        Case{{1e6, 50, 7.25, 0.5, 45.5, 3}, "1 M       50      +7.25     0.5      +45.5     6.0206   3         "},
        Case{{1e6, 50, 0, 0, 0, 1}, "1 M       50      +0        0        +0        180      1         "},
        Case{{1e6, 0, 50, 1, 90, 1e6}, "1 M       0       +50       1        +90       0        1 M       "},
        Case{{144'123'456, 123'456'789, -123'456'789, 0.99999, -179.999, 1e6},
             "144.12 M  123.457 M -123.457 M 0.99999 -180    0        1 M       "}}) {
    const auto& p = c.point;
    testing::FillSweepPoint(session, 0, p[0], p[1], p[2], p[3], p[4], p[5]);
    EXPECT_EQ(TabulateRow(session, 0), c.row);
    EXPECT_EQ(session.SweepRho[0], p[3] == 0 ? 1e-9 : p[3]);  // a Rho of 0 is replaced
  }
}

TEST(Tabulate, PerfectMatchIsShownOnTheImaginaryAxis) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = 14e6;
  session.SweepStart = session.SweepStop = 14e6;
  session.SweepPoints = 3;
  const std::vector<std::string> rows = TabulateSweep(session);
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_DOUBLE_EQ(session.SweepRho[0], 5e-13);
  EXPECT_EQ(rows[0], "14 M      50      +0        0        +90       246.02   1         ");
}

}  // namespace
}  // namespace kalvex
