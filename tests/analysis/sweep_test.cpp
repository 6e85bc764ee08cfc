#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "analysis/sweep.h"
#include "analysis/sweep_on_chart.h"
#include "analysis/sweep_settings.h"
#include "analysis/tabulate.h"
#include "chart/chart_view.h"
#include "files/sweep_data_file.h"
#include "model/format.h"
#include "print/print_table.h"
#include "model/calculate.h"
#include "support/drawing_queries.h"
#include "support/fake_dialogs.h"
#include "support/networks.h"

namespace kalvex {
namespace {

class SweepTest : public ::testing::Test {
 protected:
  Session session = testing::FiveStageNetwork();
};

// The settings are made positive, limited with a message each, and the
// session leaves the load data for the entered load.
TEST_F(SweepTest, SettingsClampWithTheirMessages) {
  const std::vector<std::string> low = {"Start frequency has been reset to the minimum allowed (5 kHz)",
                                        "Stop frequency has been reset to the minimum allowed (5.01 kHz)"};
  const std::vector<std::string> high = {"Start frequency has been reset to the maximum allowed (10 gHz)",
                                         "Stop frequency has been reset to the maximum allowed."};
  for (const auto& [typed, wanted, messages] : {
           std::tuple{std::array{-13e6, -15e6, 5.0}, std::array{13e6, 15e6, 5.0}, std::vector<std::string>{}},
           {{5000, 5010, 3}, {5000, 5010, 3}, {}}, {{4999, 5009, 2}, {5000, 5010, 3}, low},
           {{2e10, 3e10, 2001}, {1e10, 1e10, 2000}, high}, {{15e6, 13e6, 1e9}, {15e6, 13e6, 2000}, {}},
           {{1e6, 2e6, 2.5}, {1e6, 2e6, 3}, {}}}) {
    session.LoadSource = 2;
    testing::FakeDialogs dialogs;
    // Each reset value is in its box before its message shows.
    std::vector<std::string> writes;
    AcceptSweepSettings(session, dialogs, typed[0], typed[1], typed[2], [&](int box, const std::string& text) {
      writes.push_back(std::to_string(box) + text + " before message " + std::to_string(dialogs.messages.size()));
    });
    EXPECT_EQ((std::array{session.SweepStart, session.SweepStop, double(session.SweepPoints)}), wanted);
    EXPECT_EQ(session.LoadSource, 1);
    EXPECT_EQ(dialogs.MessageTexts(), messages);
    std::vector<std::string> wantedWrites;
    for (std::size_t m = 0; m < messages.size(); ++m) {
      wantedWrites.push_back(std::to_string(m) + FormatSI(wanted[m]) + " before message " + std::to_string(m));
    }
    EXPECT_EQ(writes, wantedWrites);
  }
}

// One rule for the table, its printout and the data file: a point counts
// when its numbers are finite in double precision. A 1E+36 H inductor's huge
// but finite reactance gives every row; a 1E+308 H one overflows and gives none.
TEST_F(SweepTest, TableFileAndPrintoutKeepTheSamePoints) {
  Session empty = session;
  empty.LoadSource = 0;  // no sweep: the printout's heading and footer alone
  DisplayList bare;
  DrawTablePages(empty, bare, "now");
  const std::size_t frame = testing::OfKind(bare, DrawCommand::Kind::Text).size();
  for (const auto& [henries, rows] : {std::pair{1e36, 5u}, std::pair{1e308, 0u}}) {
    session.ElementType = {0, SeriesInductor};
    session.Value[1] = {0, henries, 200};
    testing::SweepOver(session, 13e6, 15e6, 5);
    const std::vector<std::string> table = TabulateSweep(session);
    EXPECT_EQ(table.size(), rows) << henries;
    for (const std::string& row : table) EXPECT_EQ(row.find("inf"), std::string::npos) << row;
    const std::string file = SweepDataText(session, "x.DAT", "now");
    EXPECT_EQ(static_cast<std::size_t>(std::count(file.begin(), file.end(), '\n')), 7 + rows) << henries;
    DisplayList printed;
    DrawTablePages(session, printed, "now");
    EXPECT_EQ(testing::OfKind(printed, DrawCommand::Kind::Text).size(), frame + 7 * rows) << henries;
  }
}

// Usable (the page's load, and each sweep for Tabulate) and switchable (after
// the sweep setup) are strict tests.
TEST_F(SweepTest, SettingsRulesAreStrict) {
  for (const auto& [start, stop, points, usable, switchable] :
       {std::tuple{5000.0, 1e6, 11, false, false}, {5001, 1e6, 11, true, false},
        {10000, 1e6, 11, true, false}, {10001, 1e6, 11, true, true}, {1e6, 5010, 11, false, false},
        {1e6, 10100, 11, true, false}, {1e6, 10101, 11, true, true}, {1e6, 2e6, 2, false, false},
        {1e6, 2e6, 3, true, true}}) {
    testing::SweepOver(session, start, stop, points);
    EXPECT_EQ(SweepSettingsUsable(session), usable) << start << " " << stop;
    EXPECT_EQ(SweepSettingsSwitchable(session), switchable) << start << " " << stop;
  }
}

// Rows in the heading's columns: signed reactance and angle, a Rho of 0
// replaced so that the return loss is finite, total reflection with no
// return loss, and long values pushing later columns right. Only the table
// caps the VSWR.
TEST_F(SweepTest, TabulatedRowsStandInTheHeadingsColumns) {
  for (const auto& [p, row] : {
           std::pair{std::array<double, 6>{1e6, 50, -12.5, 0.5, -30, 3},
                     "1 M       50      -12.5     0.5      -30       6.0206   3         "},
           {{1e6, 50, 0, 0.5, 0, 3}, "1 M       50      +0        0.5      +0        6.0206   3         "},
           {{1e6, 50, 7.25, 0.5, 45.5, 3}, "1 M       50      +7.25     0.5      +45.5     6.0206   3         "},
           {{1e6, 50, 0, 0, 0, 1}, "1 M       50      +0        0        +0        180      1         "},
           {{1e6, 0, 50, 1, 90, 1e6}, "1 M       0       +50       1        +90       0        1 M       "},
           {{144'123'456, 123'456'789, -123'456'789, 0.99999, -179.999, 1e6},
            "144.12 M  123.457 M -123.457 M 0.99999 -180    0        1 M       "}}) {
    testing::FillSweepPoint(session, 0, p[0], p[1], p[2], p[3], p[4], p[5]);
    EXPECT_EQ(TabulateRow(session, 0), row);
    EXPECT_EQ(session.SweepRho[0], p[3] == 0 ? 1e-9 : p[3]);  // a Rho of 0 is replaced
  }
  session.ElementType = {};
  session.Value[0] = {0, 50, 0};
  testing::SweepOver(session, 14e6, 14e6, 3);
  const std::vector<std::string> rows = TabulateSweep(session);
  ASSERT_EQ(rows.size(), 3u);  // a perfect match is shown on the imaginary axis
  EXPECT_DOUBLE_EQ(session.SweepRho[0], 5e-13);
  EXPECT_EQ(rows[0], "14 M      50      +0        0        +90       246.02   1         ");
  session.Value[0] = {0, 1e-5, 0};  // lossless, far off the system impedance: Rho just below 1
  RunSweepPoints(session, SweepUse::Chart);
  EXPECT_GT(session.SweepVSWR[0], 1e6);
  RunSweepPoints(session, SweepUse::Table);
  EXPECT_EQ(std::tuple(session.SweepVSWR[0], int{session.DataIndex}), std::tuple(1e6, 1));
}

using Kind = DrawCommand::Kind;

// The points as circles of radius 30 in the sweep's green at their
// reflection, ringed letters on the first and last, the legend at x 3700.
TEST_F(SweepTest, ManualSweepOnTheChartMarksEachPointAndItsEnds) {
  testing::SweepOver(session, 13e6, 15e6, 3);
  const double frequency = session.Frequency;
  DisplayList list;
  RunSweep(session, list);
  EXPECT_TRUE(list.Commands().empty());  // switched off: nothing
  session.SweepShown = 1;
  RunSweep(session, list);
  std::vector<DrawCommand> circles;
  std::vector<std::string> legend, markers;
  Point disc;
  for (const DrawCommand& c : list.Commands()) {
    if (c.kind == Kind::Ellipse && c.colour == RGB(17, 136, 17) && c.b.x == 30) circles.push_back(c);
    if (c.kind == Kind::FillEllipse && c.colour == kWhite && c.b.x == 90) disc = c.a;
    if (c.kind != Kind::Text) continue;
    if (c.a.x == 3700) legend.push_back(std::to_string(static_cast<int>(c.a.y)) + " " + c.text);
    if (c.a.x == disc.x - 45 && c.a.y == disc.y - 90) markers.push_back(c.text + "@" + std::to_string(disc.x));
  }
  ASSERT_EQ(circles.size(), 3u);
  const ChartView view = ChartView::Of(session);
  for (int k = 0; k < 3; ++k) {
    const Point p = view.GammaToPage(ImpedanceToGamma(session.SweepR[k], session.SweepX[k], 50));
    EXPECT_NEAR(circles[k].a.x, p.x, 1e-6) << k;
    EXPECT_NEAR(circles[k].a.y, p.y, 1e-6) << k;
  }
  EXPECT_EQ(markers, (std::vector<std::string>{"S@" + std::to_string(circles[0].a.x),
                                               "F@" + std::to_string(circles[2].a.x)}));
  EXPECT_EQ(legend, (std::vector<std::string>{"7940 'S'= 13 MHz", "8340 3 points", "8140 'F'= 15 MHz",
                                              "8340 3 points"}));
  EXPECT_EQ(session.SweepFreq[1], 14e6);
  EXPECT_EQ(session.Frequency, frequency);
}

// The sweep in one batch leaves the arrays and the session as a loop of
// CalculateNetwork point by point does: a manual point without a frequency
// above 0 repeats the point before it (the first one the session's input), a
// load-data point without one keeps its load; the input impedance ends as
// the last point's, PointIndex at the last load-data point, and a line in the
// network sets the velocity factor to 1. Load data fills the table's indexes
// 1..n at the points' own frequencies, and the table takes the middle point.
TEST_F(SweepTest, TheBatchLeavesWhatAPointByPointLoopLeaves) {
  struct Case {
    const char* name;
    int16_t loadSource;
    double start;  // manual: the sweep's start; load data: the first point's frequency
    double stop = 15e6;
  };
  for (const Case& c : {Case{"manual", 1, 13e6}, Case{"manual from 0 Hz", 1, 0},
                        Case{"manual falling below 0 Hz", 1, 13e6, -20e6}, Case{"load data", 2, 13e6},
                        Case{"load data from 0 Hz", 2, 0}}) {
    SCOPED_TRACE(c.name);
    Session batched = testing::FiveStageNetwork();
    batched.LoadSource = c.loadSource;
    testing::SweepOver(batched, c.start, c.stop, 5);
    for (int k = 1; k <= 5; ++k) {
      std::tie(batched.LoadFreq[k], batched.LoadR[k], batched.LoadX[k]) =
          std::tuple(k == 1 ? c.start : 13e6 + k * 1e5, 30.0 + k, 5.0 * k - 12);
    }
    std::tie(batched.InputR, batched.InputX, batched.VelocityFactor) = std::tuple(7, -3, 0.66);
    batched.SweepFreq[0] = batched.SweepFreq[6] = -1;
    Session looped = batched;
    const SweepIndexes indexes = RunSweepPoints(batched, SweepUse::Table);
    EXPECT_EQ(batched.SweepFreq[6], -1);
    if (c.loadSource == 2) {
      EXPECT_EQ(std::tuple(indexes.first, indexes.last, int{batched.DataIndex}), std::tuple(1, 5, 3));
      EXPECT_EQ(batched.SweepFreq[0], -1);
    }
    for (int k = indexes.first; k <= indexes.last; ++k) {
      if (c.loadSource == 1) {
        looped.Frequency = c.start + k * (c.stop - c.start) / 4;
        EXPECT_EQ(batched.SweepFreq[k], looped.Frequency) << k;  // evenly spaced, exactly on the stop
        if (looped.Frequency > 0) CalculateNetwork(looped, 0);
      } else {
        looped.Frequency = looped.LoadFreq[k];
        EXPECT_EQ(batched.SweepFreq[k], looped.LoadFreq[k]) << k;
        looped.InputR = looped.LoadR[k];
        looped.InputX = looped.LoadX[k];
        looped.PointIndex = static_cast<int16_t>(k);
        CalculateNetwork(looped, looped.PointIndex);
      }
      EXPECT_EQ(std::tuple(batched.SweepR[k], batched.SweepX[k]), std::tuple(looped.InputR, looped.InputX)) << k;
      const Gamma g = ImpedanceToGamma(batched.SweepR[k], batched.SweepX[k], 50);
      EXPECT_NEAR(batched.SweepRho[k], std::hypot(g.u, g.v), 1e-12) << k;
      EXPECT_NEAR(batched.SweepVSWR[k], (1 + batched.SweepRho[k]) / (1 - batched.SweepRho[k]), 1e-9) << k;
    }
    EXPECT_EQ(std::tuple(batched.InputR, batched.InputX, batched.PointIndex, batched.VelocityFactor),
              std::tuple(looped.InputR, looped.InputX, looped.PointIndex, looped.VelocityFactor));
  }
}

}  // namespace
}  // namespace kalvex
