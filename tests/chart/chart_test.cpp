#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "chart/analysis_view.h"
#include "chart/chart_view.h"
#include "chart/network_path.h"
#include "chart/overlay_settings.h"
#include "chart/overlays.h"
#include "model/calculate.h"
#include "support/drawing_queries.h"
#include "support/fake_dialogs.h"
#include "support/five_stage_network.h"
#include "support/networks.h"

namespace kalvex {
namespace {

constexpr Colour kTeal = RGB(17, 187, 187);
constexpr Colour kVSWRRed = RGB(136, 17, 17);

class ChartTest : public ::testing::Test {
 protected:
  void SetUp() override {
    InitialiseSession(session);
    ResetView(session);
    session.ChartAspect = 0.75f;
  }
  std::vector<Gamma> LineEndsIn(Colour colour) const {
    std::vector<Gamma> ends;
    for (const DrawCommand& line : testing::LinesIn(list, colour)) ends.push_back(ChartView::Of(session).PageToGamma(line.b));
    return ends;
  }
  std::tuple<float, float, double> View() const {
    return {session.ChartCentreX, session.ChartCentreY, session.ChartRadius};
  }

  Session session;
  DisplayList list;
};

// Zoom goes by √2 up to 8 and back, with the buttons enabled accordingly.
TEST_F(ChartTest, ZoomGoesBySquareRootOfTwoUpToEight) {
  ZoomButtons buttons{};
  for (int click = 1; click <= 3; ++click) buttons = ZoomIn(session);
  EXPECT_FLOAT_EQ(session.ChartZoom, 2.8284271f);
  EXPECT_NEAR(session.ChartRadius, 8485.28, 0.01);
  EXPECT_TRUE(buttons.inEnabled && buttons.outEnabled);
  for (int click = 4; click <= 6; ++click) buttons = ZoomIn(session);
  EXPECT_EQ(std::pair(session.ChartZoom, session.ChartRadius), std::pair(8.0f, 24000.0f));
  EXPECT_FALSE(buttons.inEnabled);
  buttons = ZoomOut(session);  // one step out from 8: by √2 exactly
  EXPECT_FLOAT_EQ(session.ChartZoom, 5.656854f);
  EXPECT_TRUE(buttons.inEnabled);
  for (int click = 2; click <= 6; ++click) buttons = ZoomOut(session);
  EXPECT_EQ(std::pair(session.ChartZoom, session.ChartRadius), std::pair(1.0f, 3000.0f));
  EXPECT_TRUE(buttons.inEnabled && !buttons.outEnabled);
}

// The Analysis page opens at the zoom of the last visit, centred at y 5000,
// with the horizontal centre where the user left it, even at 0.
TEST_F(ChartTest, AnalysisPageOpensAtTheLastZoomAndHorizontalCentre) {
  session.ChartZoom = 2.828427f;
  session.ChartCentreX = 0;
  session.ChartCentreY = 6100;
  LoadAnalysisView(session);
  EXPECT_EQ(View(), std::tuple(0.0f, 5000.0f, double(3000 * 2.828427f)));
}

// A drag moves the chart by the whole distance from the press, and only below
// the strip's band (y above 2000).
TEST_F(ChartTest, DragMovesOnlyBelowTheStripBand) {
  ChartDrag drag;
  drag.Press(6000, 1800);
  EXPECT_FALSE(drag.Move(session, 6100, 1900) || session.ChartCentreX != 8000);
  EXPECT_TRUE(drag.Move(session, 6500, 2100));
  EXPECT_EQ(View(), std::tuple(8500.0f, 5300.0f, 3000.0));
  EXPECT_TRUE(drag.Move(session, 6400, 2200));
  EXPECT_EQ(View(), std::tuple(8400.0f, 5400.0f, 3000.0));
}

// A typed factor is clamped to .5..1.5 and both boxes rewritten; a factor
// within the range leaves the boxes as they are.
TEST_F(ChartTest, AspectEntryClampsAndRewritesBothBoxes) {
  for (const auto& [typed, aspect, factor, percent] :
       {std::tuple{"2", 1.5f, "1.5", "150"}, {".3", 0.5f, ".5", "50"}, {"abc", 0.5f, ".5", "50"},
        {".8", 0.8f, "", ""}}) {
    const AspectTexts texts = AspectFactorEntered(session, typed);
    EXPECT_FLOAT_EQ(session.ChartAspect, aspect);
    EXPECT_EQ(texts.factor, factor);
    EXPECT_EQ(texts.percent, percent);
  }
}

// Q arcs of 1 cross the imaginary axis at √2 − 1; arcs of 0.5 turn white
// beyond the chart's ends.
TEST_F(ChartTest, QArcsCrossTheAxisWhereTheirQSaysAndTurnWhiteBeyondTheChart) {
  DrawQArcs(session, list);
  DrawVSWRCircle(session, list);
  EXPECT_TRUE(list.Commands().empty());  // switched off: nothing
  session.QArcsOn = 1;
  session.QCircle = 1;
  DrawQArcs(session, list);
  const std::vector<Gamma> ends = LineEndsIn(kTeal);
  for (double sign : {+1.0, -1.0}) {
    double nearest = 1;
    for (const Gamma& g : ends) nearest = std::min(nearest, std::hypot(g.u, g.v - sign * (std::sqrt(2.0) - 1)));
    EXPECT_LT(nearest, 0.002) << sign;
  }
  // Every impedance on the arcs has |X| = R: both over |1 − Γ|², 2|v| = 1 − |Γ|².
  for (const Gamma& g : ends) EXPECT_NEAR(std::fabs(2 * g.v), 1 - g.u * g.u - g.v * g.v, 1e-6);
  EXPECT_EQ(testing::TextAt(list, 5300, 8340), "Q=1");
  list.Reset();
  session.QCircle = 0.5f;
  DrawQArcs(session, list);
  const std::vector<DrawCommand> white = testing::LinesIn(list, kWhite);
  ASSERT_FALSE(white.empty());
  for (const DrawCommand& line : white) EXPECT_GE(std::fabs(line.b.x - 8000), 0.75 * 3000);
  for (const DrawCommand& line : testing::LinesIn(list, kTeal)) EXPECT_LT(std::fabs(line.b.x - 8000), 0.75 * 3000);
  // 1,801 points from 0 to 180 degrees on each of the two arcs.
  EXPECT_EQ(white.size() + testing::LinesIn(list, kTeal).size(), 2u * 1800);
  for (const auto& [entered, drawn] : {std::pair{0.0f, 2.0f}, {0.05f, 0.1f}, {25.0f, 20.0f}}) {
    session.QCircle = entered;  // brought into range when drawn
    DrawQArcs(session, list);
    EXPECT_FLOAT_EQ(session.QCircle, drawn) << entered;
  }
}

// A refused value stays in the session for the dialog; the circle is drawn clamped.
TEST_F(ChartTest, VSWRCirclesHaveTheirReflectionMagnitude) {
  for (const auto& [vswr, rho, text] :
       {std::tuple{2.0f, 1.0 / 3, "VSWR=2"}, {20.0f, 19.0 / 21, "VSWR=20"},
        {-1.0f, (double{1.01f} - 1) / (double{1.01f} + 1), "VSWR=1.01"}, {50.0f, 19.0 / 21, "VSWR=20"}}) {
    list.Reset();
    session.VSWRCircleOn = 1;
    session.VSWRCircle = vswr;
    DrawVSWRCircle(session, list);
    const std::vector<Gamma> ends = LineEndsIn(kVSWRRed);
    ASSERT_EQ(ends.size(), 72u);  // 73 points, the last back on the first
    for (const Gamma& g : ends) EXPECT_NEAR(std::hypot(g.u, g.v), rho, 1e-9) << vswr;
    EXPECT_EQ(testing::TextAt(list, 5300, 8140), text);
    EXPECT_EQ(session.VSWRCircle, vswr);
  }
}

// The typed text is kept, even when refused.
TEST_F(ChartTest, OverlaySettingsAcceptTheirRangeAndRefuseBeyondIt) {
  for (const auto& [overlay, typed, accepted] :
       {std::tuple{Overlay::QArcs, "0.05", false}, {Overlay::QArcs, "0.1", true}, {Overlay::QArcs, "20", true},
        {Overlay::QArcs, "20.01", false}, {Overlay::VSWRCircle, "1.005", false},
        {Overlay::VSWRCircle, "1.01", true}, {Overlay::VSWRCircle, "20", true},
        {Overlay::VSWRCircle, "21", false}}) {
    testing::FakeDialogs dialogs;
    EXPECT_EQ(AcceptOverlaySetting(session, dialogs, overlay, typed), accepted) << typed;
    const char* refusal =
        overlay == Overlay::QArcs ? "Q must be between .1 and 20" : "VSWR circle radius must be between 1.01 and 20";
    EXPECT_EQ(dialogs.MessageTexts(), testing::FakeDialogs::Only(accepted ? nullptr : refusal));
    EXPECT_EQ(OverlaySettingText(session, overlay), typed);
  }
}

class NetworkPaths : public ::testing::TestWithParam<testing::Part> {};

double Distance(Gamma a, Gamma b) { return std::hypot(a.u - b.u, a.v - b.v); }

// Every stage's stretch starts where the one before ended (the first on the
// load), and the path ends at the network's input impedance.
void ExpectEachStageGrowsFromWhereTheLastEnded(Session session) {
  const auto values = session.Value;
  const std::vector<PathPoint> path = TraceNetworkPath(session);
  ASSERT_EQ(path.size(), 5000u);  // stages 4 and 5 are empty: their stretches stand still
  EXPECT_EQ(session.Value, values);
  EXPECT_LT(Distance(path[0].gamma, ImpedanceToGamma(30, -20, 50)), 0.01);
  for (int stage = 2; stage <= 3; ++stage) {
    const std::size_t first = 1000 * (stage - 1);
    EXPECT_EQ(std::pair(path[first - 1].stage, path[first].stage), std::pair(stage - 1, stage));
    EXPECT_LT(Distance(path[first].gamma, path[first - 1].gamma), 0.01) << "stage " << stage;
  }
  CalculateNetwork(session, 1);
  EXPECT_LT(Distance(path.back().gamma, ImpedanceToGamma(session.InputR, session.InputX, 50)), 0.001);
}

TEST_P(NetworkPaths, EachStageGrowsFromWhereTheLastEnded) {
  ExpectEachStageGrowsFromWhereTheLastEnded(testing::NetworkAround(GetParam()));
}

// A two-port block grows from a through connection: a 200 ohm series
// resistor's two-port in each placement.
TEST(NetworkPath, TwoPortBlockGrowsFromAThroughConnection) {
  const SMatrix resistor = SOfAbcd(SeriesAbcd(200), 50);
  const auto table = std::make_shared<const TwoPortTable>(
      std::vector<TwoPortTable::Point>{{1e6, resistor}, {100e6, resistor}}, 50);
  for (const double placement : {1, 2, 3}) {
    Session session = testing::NetworkAround({"block", TwoPort, {0, placement}});
    session.TwoPortBlocks[2] = {"r.s2p", table};
    ExpectEachStageGrowsFromWhereTheLastEnded(session);
  }
}

INSTANTIATE_TEST_SUITE_P(AllThirteen, NetworkPaths, ::testing::ValuesIn(testing::ThirteenParts()), testing::PartName);
INSTANTIATE_TEST_SUITE_P(CableAndTransformer, NetworkPaths, ::testing::ValuesIn(testing::FeedParts()),
                         testing::PartName);

// Two series resistors of 1E+308 overflow the calculation: those points are
// left out rather than drawn at infinite or undefined places.
TEST(NetworkPath, SkipsPointsThatAreNotFinite) {
  Session session = testing::NetworkAround({"huge R", SeriesResistor, {0, 1e308}});
  session.Value[1][1] = 1e308;
  session.ChartRadius = 3000;
  DisplayList list;
  DrawNetworkArcs(session, list);
  for (const DrawCommand& c : list.Commands()) ASSERT_TRUE(std::isfinite(c.a.x + c.a.y + c.b.x + c.b.y));
  EXPECT_LT(TraceNetworkPath(session).size(), 5000u);
}

// The path, calculated from each stretch's fixed stages on, is the path the
// whole network recalculated at every point gave: the same doubles.
TEST(NetworkPath, EqualsTheWholeNetworkRecalculatedAtEveryPoint) {
  struct Case {
    bool lcAndShortedStub;  // stage 3 a series parallel LC, stage 5 a shunt shorted stub
    double sumU, sumV, u1234, v1234, u4999, rho;
  };
  for (const Case& c : {Case{false, 1110.3946147597651, -1440.6933642662343, 0.54389649023440578,
                             0.4226841995550219, 0.41659373397238508, 0.92606502922874168},
                        Case{true, 2473.6631063967297, -943.09610023709024, 0.5509993339670648,
                             0.42164424959059577, 0.57856761128353129, 0.98549581939488262}}) {
    Session session = testing::FiveStageNetwork();
    if (c.lcAndShortedStub) {
      session.ElementType[3] = SeriesParallelLC;
      session.Value[3] = {0, 1e-6, 100, 120e-12, 500};
      session.ElementType[5] = ShuntShortedStub;
      session.Value[5] = {0, 60, 14e6, 60};
    }
    const std::vector<PathPoint> path = TraceNetworkPath(session);
    ASSERT_EQ(path.size(), 5000u);
    double sumU = 0, sumV = 0;
    for (const PathPoint& p : path) { sumU += p.gamma.u; sumV += p.gamma.v; }
    EXPECT_EQ(std::tuple(sumU, sumV, path[1234].gamma.u, path[1234].gamma.v, path[4999].gamma.u, session.Rho),
              std::tuple(c.sumU, c.sumV, c.u1234, c.v1234, c.u4999, c.rho));
  }
}

}  // namespace
}  // namespace kalvex
