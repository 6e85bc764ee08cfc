#include <gtest/gtest.h>

#include <cmath>

#include "chart/chart_view.h"
#include "chart/overlay_settings.h"
#include "chart/overlays.h"
#include "support/drawing_queries.h"
#include "support/fake_dialogs.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;
constexpr Colour kTeal = RGB(17, 187, 187);
constexpr Colour kVSWRRed = RGB(136, 17, 17);

class OverlaysTest : public ::testing::Test {
 protected:
  void SetUp() override {
    InitialiseSession(session);
    session.ChartAspect = 0.75f;
  }
  std::vector<Gamma> LineEndsIn(Colour colour) const {
    std::vector<Gamma> ends;
    for (const DrawCommand& line : testing::LinesIn(list, colour)) {
      ends.push_back(ChartView::Of(session).PageToGamma(line.b));
    }
    return ends;
  }
  const DrawCommand* TextAt(double x, double y) const { return testing::TextAt(list, x, y); }

  Session session;
  DisplayList list;
};

TEST_F(OverlaysTest, QArcsOfOneCrossTheImaginaryAxisAtRootTwoLessOne) {
  session.QArcsOn = 1;
  session.QCircle = 1;
  DrawQArcs(session, list);
  const std::vector<Gamma> ends = LineEndsIn(kTeal);
  for (double sign : {+1.0, -1.0}) {
    double nearest = 1;
    for (const Gamma& g : ends) {
      nearest = std::min(nearest, std::hypot(g.u, g.v - sign * (std::sqrt(2.0) - 1)));
    }
    EXPECT_LT(nearest, 0.002) << sign;
  }
  for (const Gamma& g : ends) {
    // Every impedance on the arcs has |X| = R.
    const double reactance = std::fabs(2 * g.v);
    const double resistance = 1 - g.u * g.u - g.v * g.v;  // both over |1 − Γ|²
    EXPECT_NEAR(reactance, resistance, 1e-6);
  }
  ASSERT_NE(TextAt(5300, 8340), nullptr);
  EXPECT_EQ(TextAt(5300, 8340)->text, "Q=1");
}

TEST_F(OverlaysTest, QArcsTurnWhiteBeyondTheChartsEnds) {
  DrawQArcs(session, list);
  DrawVSWRCircle(session, list);
  EXPECT_TRUE(list.Commands().empty());  // switched off: nothing
  session.QArcsOn = 1;
  session.QCircle = 0.5f;
  DrawQArcs(session, list);
  const std::vector<DrawCommand> white = testing::LinesIn(list, kWhite);
  ASSERT_FALSE(white.empty());
  for (const DrawCommand& line : white) EXPECT_GE(std::fabs(line.b.x - 8000), 0.75 * 3000);
  for (const DrawCommand& line : testing::LinesIn(list, kTeal)) {
    EXPECT_LT(std::fabs(line.b.x - 8000), 0.75 * 3000);
  }
  // 1,801 points from 0 to 180 degrees on each of the two arcs.
  EXPECT_EQ(white.size() + testing::LinesIn(list, kTeal).size(), 2u * 1800);
}

TEST_F(OverlaysTest, QArcsBringTheirValueIntoRange) {
  for (const auto& [entered, drawn] : {std::pair{0.0f, 2.0f}, {0.05f, 0.1f}, {25.0f, 20.0f}}) {
    session.QArcsOn = 1;
    session.QCircle = entered;
    DrawQArcs(session, list);
    EXPECT_FLOAT_EQ(session.QCircle, drawn) << entered;
  }
}

// A refused value stays in the session for the dialog; the circle is drawn clamped.
TEST_F(OverlaysTest, VSWRCirclesHaveTheirReflectionMagnitude) {
  struct Case {
    float vswr;
    double rho;
    const char* text;
  };
  for (const Case& c : {Case{2, 1.0 / 3, "VSWR=2"}, Case{20, 19.0 / 21, "VSWR=20"},
                        Case{-1, (double{1.01f} - 1) / (double{1.01f} + 1), "VSWR=1.01"},
                        Case{50, 19.0 / 21, "VSWR=20"}}) {
    list.Reset();
    session.VSWRCircleOn = 1;
    session.VSWRCircle = c.vswr;
    DrawVSWRCircle(session, list);
    const std::vector<Gamma> ends = LineEndsIn(kVSWRRed);
    ASSERT_EQ(ends.size(), 72u);  // 73 points, the last back on the first
    for (const Gamma& g : ends) EXPECT_NEAR(std::hypot(g.u, g.v), c.rho, 1e-9) << c.vswr;
    ASSERT_NE(TextAt(5300, 8140), nullptr);
    EXPECT_EQ(TextAt(5300, 8140)->text, c.text);
    EXPECT_EQ(session.VSWRCircle, c.vswr);
  }
}

// The typed text is kept, even when refused.
TEST(OverlaySettings, AcceptTheirRangeAndRefuseBeyondIt) {
  struct Case {
    Overlay overlay;
    const char* typed;
    bool accepted;
  };
  for (const Case& c : {Case{Overlay::QArcs, "0.05", false}, Case{Overlay::QArcs, "0.1", true},
                        Case{Overlay::QArcs, "20", true}, Case{Overlay::QArcs, "20.01", false},
                        Case{Overlay::VSWRCircle, "1.005", false},
                        Case{Overlay::VSWRCircle, "1.01", true},
                        Case{Overlay::VSWRCircle, "20", true},
                        Case{Overlay::VSWRCircle, "21", false}}) {
    Session session;
    InitialiseSession(session);
    testing::FakeDialogs dialogs;
    EXPECT_EQ(AcceptOverlaySetting(session, dialogs, c.overlay, c.typed), c.accepted) << c.typed;
    const char* refusal = c.overlay == Overlay::QArcs
                              ? "Q must be between .1 and 20"
                              : "VSWR circle radius must be between 1.01 and 20";
    EXPECT_EQ(dialogs.MessageTexts(), testing::FakeDialogs::Only(c.accepted ? nullptr : refusal));
    EXPECT_EQ(OverlaySettingText(session, c.overlay), c.typed);
  }
}

}  // namespace
}  // namespace kalvex
