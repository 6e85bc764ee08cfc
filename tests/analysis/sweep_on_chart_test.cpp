#include <gtest/gtest.h>

#include "analysis/sweep_on_chart.h"
#include "analysis/sweep_settings.h"
#include "chart/chart_view.h"
#include "support/drawing_queries.h"
#include "support/five_stage_network.h"

namespace kalvex {
namespace {

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
