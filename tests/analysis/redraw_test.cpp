#include <gtest/gtest.h>

#include <cmath>

#include "analysis/redraw.h"
#include "chart/chart_view.h"
#include "chart/network_path.h"
#include "chart/readout.h"
#include "model/calculate.h"
#include "support/drawing_queries.h"
#include "support/five_stage_network.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;

class RedrawTest : public ::testing::Test {
 protected:
  void SetUp() override {
    InitialiseSession(session);
    session.LoadSource = 1;
    session.ChartAspect = 0.75f;
    ResetView(session);
    session.Frequency = 14e6;
  }

  bool HasLinesIn(Colour colour) const { return !testing::LinesIn(list, colour).empty(); }
  const DrawCommand* Label(const std::string& text, Colour colour) const {
    Colour current = 0;
    for (const DrawCommand& c : list.Commands()) {
      if (c.kind == Kind::TextColour) current = c.colour;
      if (c.kind == Kind::Text && c.text == text && current == colour) return &c;
    }
    return nullptr;
  }

  Session session;
  DisplayList list;
};

struct GridCase {
  int16_t type;
  bool impedance, admittance;
  Colour outline;
};

class GridTypes : public RedrawTest, public ::testing::WithParamInterface<GridCase> {};

TEST_P(GridTypes, DrawTheirGridsInTheirColours) {
  session.GridType = GetParam().type;
  RedrawChart(session, list);
  EXPECT_EQ(Label("+5", session.ImpedanceGridColour) != nullptr, GetParam().impedance);
  EXPECT_EQ(Label("-.5", session.AdmittanceGridColour) != nullptr, GetParam().admittance);
  EXPECT_EQ(HasLinesIn(RGB(255, 170, 170)), GetParam().impedance);  // the fine lines
  // The real axis is the first line in the outline colour.
  const auto outline = testing::LinesIn(list, GetParam().outline);
  ASSERT_FALSE(outline.empty());
  EXPECT_TRUE(std::find(testing::Texts(list).begin(), testing::Texts(list).end(),
                        "Chart normalized to 50 ohms") != testing::Texts(list).end());
}

INSTANTIATE_TEST_SUITE_P(SixTypes, GridTypes,
                         ::testing::Values(GridCase{1, true, false, RGB(255, 17, 17)},
                                           GridCase{2, true, true, RGB(255, 17, 17)},
                                           GridCase{3, true, true, RGB(17, 136, 17)},
                                           GridCase{4, true, true, RGB(17, 136, 17)},
                                           GridCase{5, false, true, RGB(17, 136, 17)},
                                           GridCase{6, false, false, RGB(255, 17, 17)}));

TEST_F(RedrawTest, GridColoursFollowTheType) {
  const Colour expected[][2] = {{0, RGB(255, 17, 17)},
                                {RGB(102, 255, 102), RGB(255, 17, 17)},
                                {RGB(17, 136, 17), RGB(255, 17, 17)},
                                {RGB(17, 136, 17), RGB(255, 153, 153)},
                                {RGB(17, 136, 17), RGB(255, 153, 153)},  // impedance kept
                                {RGB(255, 17, 17), RGB(255, 153, 153)}};
  for (int type = 1; type <= 6; ++type) {
    session.GridType = static_cast<int16_t>(type);
    RedrawChart(session, list);
    EXPECT_EQ(session.AdmittanceGridColour, expected[type - 1][0]) << type;
    EXPECT_EQ(session.ImpedanceGridColour, expected[type - 1][1]) << type;
  }
  int16_t visited[7] = {};
  session.GridType = 1;
  for (int click = 0; click < 7; ++click) {
    StepGridType(session);
    ++visited[session.GridType];
  }
  EXPECT_EQ(session.GridType, 2);
  for (int type = 1; type <= 6; ++type) EXPECT_GE(visited[type], 1);
}

TEST_F(RedrawTest, LabelsStandAtTheirFormulas) {
  session.GridType = 3;
  session.ChartAspect = 0.5f;
  ZoomIn(session);
  RedrawChart(session, list);
  const double r = session.ChartRadius;
  const DrawCommand* plus5 = Label("+5", RGB(255, 17, 17));
  ASSERT_NE(plus5, nullptr);
  EXPECT_NEAR(plus5->a.x, 8000 + 0.5 * 0.92 * r + 15, 1e-6);
  EXPECT_NEAR(plus5->a.y, 5000 - 0.39 * r - 210, 1e-6);
  const DrawCommand* minusHalf = Label("-.5", RGB(255, 17, 17));
  ASSERT_NE(minusHalf, nullptr);
  EXPECT_NEAR(minusHalf->a.x, 8000 - 0.5 * (0.62 * r + 180), 1e-6);
  const DrawCommand* admittanceTwo = Label("+2", RGB(17, 136, 17));
  ASSERT_NE(admittanceTwo, nullptr);
  EXPECT_NEAR(admittanceTwo->a.x, 8000 - 0.5 * (0.62 * r - 60), 1e-6);
  EXPECT_NEAR(admittanceTwo->a.y, 5000 + 0.82 * r + 30, 1e-6);
}

TEST_F(RedrawTest, CaptionShowsTheSystemImpedance) {
  EXPECT_EQ(ChartCaption(75), "Chart normalized to 75 ohms");
  EXPECT_EQ(ChartCaption(50.5), "Chart normalized to 50.5 ohms");
  EXPECT_EQ(ChartCaption(0.5), "Chart normalized to .5 ohms");
}

TEST_F(RedrawTest, PathRunsFromTheLoadToTheInputImpedance) {
  const Session network = testing::FiveStageNetwork();
  session.ElementType = network.ElementType;
  session.Value = network.Value;
  session.Frequency = network.Frequency;
  const auto before = session.Value;
  DrawNetworkArcs(session, list);
  EXPECT_EQ(session.Value, before);
  EXPECT_EQ(session.ArcColour, 0);

  const ChartView view = ChartView::Of(session);
  const auto dots = testing::OfKind(list, Kind::Ellipse);
  ASSERT_EQ(dots.size(), 1u);  // the first point
  // Every stage starts neutral, a thousandth away from no effect at all.
  const Point load = view.GammaToPage(ImpedanceToGamma(36, -20, 50));
  EXPECT_NEAR(dots[0].a.x, load.x, 5);
  EXPECT_NEAR(dots[0].a.y, load.y, 5);

  const auto lines = testing::OfKind(list, Kind::Line);
  ASSERT_EQ(lines.size(), 4999u);
  Session full = session;
  CalculateNetwork(full, 1);
  const Point input = view.GammaToPage(ImpedanceToGamma(full.InputR, full.InputX, 50));
  // The last step is t = 0.9999907, a hair short of the full value.
  EXPECT_NEAR(lines.back().b.x, input.x, 1.0);
  EXPECT_NEAR(lines.back().b.y, input.y, 1.0);
  EXPECT_EQ(lines.front().colour, StageArcColour(1));
  EXPECT_EQ(lines.back().colour, StageArcColour(5));
}

TEST_F(RedrawTest, SeriesInductorClimbsTheUnitResistanceCircle) {
  session.ElementType[1] = SeriesInductor;
  session.Value[1] = {0, 0.5e-6, 0};
  DrawNetworkArcs(session, list);
  const auto lines = testing::OfKind(list, Kind::Line);
  for (const DrawCommand& line : lines) {
    const Gamma g = ChartView::Of(session).PageToGamma(line.b);
    EXPECT_LE(g.v, 1);
    EXPECT_GT(g.v, 0);  // above the axis: inductive
    // On the r = 1 circle: |Γ − ½| = ½.
    EXPECT_NEAR(std::hypot(g.u - 0.5, g.v), 0.5, 1e-9);
  }
}

TEST_F(RedrawTest, LoadDataPathUsesTheMiddlePoint) {
  session.LoadSource = 2;
  session.SweepPoints = 9;
  for (int k = 1; k <= 9; ++k) {
    session.LoadFreq[k] = k * 1e6;
    session.LoadR[k] = 10.0 * k;
    session.LoadX[k] = 0;
  }
  DrawNetworkArcs(session, list);
  EXPECT_EQ(session.DataIndex, 5);
  EXPECT_EQ(session.Frequency, 5e6);
  const Point load = ChartView::Of(session).GammaToPage(ImpedanceToGamma(50, 1e-12 * 50, 50));
  EXPECT_NEAR(testing::OfKind(list, Kind::Ellipse)[0].a.x, load.x, 1e-6);
}

struct ReadoutCase {
  double u, v;
  const char* rho;
  const char* vswr;
  const char* returnLoss;
  const char* r;
  const char* x;
  const char* g;
  const char* b;
};

class Readouts : public RedrawTest, public ::testing::WithParamInterface<ReadoutCase> {};

TEST_P(Readouts, ShowThePointsValues) {
  const ReadoutCase& c = GetParam();
  const Point p = ChartView::Of(session).GammaToPage({c.u, c.v});
  const Readout readout = ReadoutAt(session, p.x, p.y);
  EXPECT_TRUE(readout.inside);
  EXPECT_EQ(readout.rho, c.rho);
  EXPECT_EQ(readout.vswr, c.vswr);
  EXPECT_EQ(readout.returnLoss, c.returnLoss);
  EXPECT_EQ(readout.resistance, c.r);
  EXPECT_EQ(readout.reactance, c.x);
  EXPECT_EQ(readout.conductance, c.g);
  EXPECT_EQ(readout.susceptance, c.b);
}

INSTANTIATE_TEST_SUITE_P(
    Points, Readouts,
    ::testing::Values(
        ReadoutCase{0, 0, " 0 @ 0 \u00b0", " 1:1   ", ">120dB", " 50 ", " 0 ", " 0.02 ", " 0 "},
        ReadoutCase{0.5, 0, " 0.5 @ 0 \u00b0", " 3:1   ", " 6.0206dB", " 150 ", " 0 ",
                    " 0.00667 ", " 0 "},
        ReadoutCase{0, 0.5, " 0.5 @ 90 \u00b0", " 3:1   ", " 6.0206dB", " 30 ", " 40 ",
                    " 0.012 ", " -0.016 "}));

TEST_F(RedrawTest, ReadoutOnTheCircleStaysFinite) {
  const Readout readout = ReadoutAt(session, 8000 - 0.75 * 3000, 5000);  // Γ = −1
  EXPECT_TRUE(readout.inside);
  EXPECT_EQ(readout.rho, " 1 @ 180 \u00b0");
  EXPECT_EQ(readout.vswr, " >1000:1   ");
  EXPECT_EQ(readout.returnLoss, " 0dB");
}

}  // namespace
}  // namespace kalvex
