#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "analysis/sweep.h"
#include "analysis/sweep_on_chart.h"
#include "analysis/sweep_settings.h"
#include "analysis/tabulate.h"
#include "chart/chart_view.h"
#include "model/calculate.h"
#include "support/drawing_queries.h"
#include "support/fake_dialogs.h"
#include "support/five_stage_network.h"
#include "support/sweep_arrays.h"

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

// The settings are made positive, limited with a message each, and the
// session leaves the load data for the entered load.
TEST(SweepSettings, ClampWithTheirMessages) {
  struct Case {
    double start, stop, points;
    double wantStart, wantStop;
    int16_t wantPoints;
    std::vector<std::string> messages;
  };
  for (const Case& c :
       {Case{-13e6, -15e6, 5, 13e6, 15e6, 5, {}}, Case{5000, 5010, 3, 5000, 5010, 3, {}},
        Case{4999, 5009, 2, 5000, 5010, 3,
             {"Start frequency has been reset to the minimum allowed (5 kHz)",
              "Stop frequency has been reset to the minimum allowed (5.01 kHz)"}},
        Case{2e10, 3e10, 2001, 1e10, 1e10, 2000,
             {"Start frequency has been reset to the maximum allowed (10 gHz)",
              "Stop frequency has been reset to the maximum allowed."}},
        Case{15e6, 13e6, 1e9, 15e6, 13e6, 2000, {}}, Case{1e6, 2e6, 2.5, 1e6, 2e6, 3, {}}}) {
    Session session;
    InitialiseSession(session);
    session.LoadSource = 2;
    testing::FakeDialogs dialogs;
    AcceptSweepSettings(session, dialogs, c.start, c.stop, c.points);
    EXPECT_EQ(session.SweepStart, c.wantStart);
    EXPECT_EQ(session.SweepStop, c.wantStop);
    EXPECT_EQ(session.SweepPoints, c.wantPoints);
    EXPECT_EQ(session.LoadSource, 1);
    EXPECT_EQ(dialogs.MessageTexts(), c.messages);
  }
}

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

using Kind = DrawCommand::Kind;
constexpr Colour kSweepGreen = RGB(17, 136, 17);

class SweepOnChartTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session = testing::FiveStageNetwork();
    session.SweepShown = 1;
  }
  // The circles of radius 30 in the sweep's green, in drawing order.
  std::vector<DrawCommand> PointCircles() const {
    std::vector<DrawCommand> circles;
    for (const DrawCommand& c : testing::OfKind(list, Kind::Ellipse)) {
      if (c.colour == kSweepGreen && c.b.x == 30 && c.b.y == 30) circles.push_back(c);
    }
    return circles;
  }
  // The ringed letters: the text and the centre of the white disc under it.
  std::vector<std::pair<std::string, Point>> Markers() const {
    std::vector<std::pair<std::string, Point>> markers;
    Point disc;
    for (const DrawCommand& c : list.Commands()) {
      if (c.kind == Kind::FillEllipse && c.colour == kWhite && c.b.x == 90) disc = c.a;
      if (c.kind == Kind::Text && c.a.x == disc.x - 45 && c.a.y == disc.y - 90) {
        markers.emplace_back(c.text, disc);
      }
    }
    return markers;
  }
  // The legend's lines at x 3700, each with its row.
  std::vector<std::string> Legend() const {
    std::vector<std::string> lines;
    for (const DrawCommand& c : testing::OfKind(list, Kind::Text)) {
      if (c.a.x == 3700) lines.push_back(std::to_string(static_cast<int>(c.a.y)) + " " + c.text);
    }
    return lines;
  }

  Session session;
  DisplayList list;
};

TEST_F(SweepOnChartTest, ManualSweepMarksEachPointAndItsEnds) {
  session.SweepStart = 13e6;
  session.SweepStop = 15e6;
  session.SweepPoints = 3;
  const double frequency = session.Frequency;
  session.SweepShown = 0;
  RunSweep(session, list);
  EXPECT_TRUE(list.Commands().empty());  // switched off: nothing
  session.SweepShown = 1;
  RunSweep(session, list);
  const auto circles = PointCircles();
  ASSERT_EQ(circles.size(), 3u);
  const ChartView view = ChartView::Of(session);
  for (int k = 0; k < 3; ++k) {
    const Gamma g = ImpedanceToGamma(session.SweepR[k], session.SweepX[k], 50);
    EXPECT_NEAR(circles[k].a.x, view.GammaToPage(g).x, 1e-6) << k;
    EXPECT_NEAR(circles[k].a.y, view.GammaToPage(g).y, 1e-6) << k;
  }
  const auto markers = Markers();
  ASSERT_EQ(markers.size(), 2u);
  EXPECT_EQ(markers[0].first, "S");
  EXPECT_EQ(markers[0].second.x, circles[0].a.x);
  EXPECT_EQ(markers[1].first, "F");
  EXPECT_EQ(markers[1].second.x, circles[2].a.x);
  EXPECT_EQ(Legend(), (std::vector<std::string>{"7940 'S'= 13 MHz", "8340 3 points",
                                                "8140 'F'= 15 MHz", "8340 3 points"}));
  EXPECT_EQ(session.SweepFreq[1], 14e6);
  EXPECT_EQ(session.Frequency, frequency);
  EXPECT_EQ(session.SweepPoints, 3);
}

struct EnablingCase {
  double start;
  double stop;
  int16_t points;
  bool usable;      // the page's load (sweep switch) and each sweep (Tabulate)
  bool switchable;  // after the sweep setup (sweep switch)
};

TEST(SweepSettingsRules, AreStrict) {
  for (const EnablingCase c : {EnablingCase{5000, 1e6, 11, false, false},
                               EnablingCase{5001, 1e6, 11, true, false},
                               EnablingCase{10000, 1e6, 11, true, false},
                               EnablingCase{10001, 1e6, 11, true, true},
                               EnablingCase{1e6, 5010, 11, false, false},
                               EnablingCase{1e6, 10100, 11, true, false},
                               EnablingCase{1e6, 10101, 11, true, true},
                               EnablingCase{1e6, 2e6, 2, false, false},
                               EnablingCase{1e6, 2e6, 3, true, true}}) {
    Session session;
    session.SweepStart = c.start;
    session.SweepStop = c.stop;
    session.SweepPoints = c.points;
    EXPECT_EQ(SweepSettingsUsable(session), c.usable) << c.start << " " << c.stop;
    EXPECT_EQ(SweepSettingsSwitchable(session), c.switchable) << c.start << " " << c.stop;
  }
}

}  // namespace
}  // namespace kalvex
