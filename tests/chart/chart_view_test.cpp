#include <gtest/gtest.h>

#include "chart/analysis_view.h"
#include "chart/chart_view.h"

namespace kalvex {
namespace {

class ZoomTest : public ::testing::Test {
 protected:
  void SetUp() override {
    InitialiseSession(session);
    ResetView(session);
  }
  Session session;
};

TEST_F(ZoomTest, InGoesBySquareRootOfTwoUpToEight) {
  ZoomButtons buttons{};
  for (int click = 1; click <= 3; ++click) buttons = ZoomIn(session);
  EXPECT_FLOAT_EQ(session.ChartZoom, 2.8284271f);
  EXPECT_NEAR(session.ChartRadius, 8485.28, 0.01);
  EXPECT_TRUE(buttons.inEnabled);
  EXPECT_TRUE(buttons.outEnabled);
  for (int click = 4; click <= 6; ++click) buttons = ZoomIn(session);
  EXPECT_EQ(session.ChartZoom, 8);
  EXPECT_EQ(session.ChartRadius, 24000);
  EXPECT_FALSE(buttons.inEnabled);
  buttons = ZoomOut(session);  // one step out from 8: by √2 exactly
  EXPECT_FLOAT_EQ(session.ChartZoom, 5.656854f);
  EXPECT_TRUE(buttons.inEnabled);
  for (int click = 2; click <= 6; ++click) buttons = ZoomOut(session);
  EXPECT_EQ(session.ChartZoom, 1);
  EXPECT_EQ(session.ChartRadius, 3000);
  EXPECT_FALSE(buttons.outEnabled);
  EXPECT_TRUE(buttons.inEnabled);
}

TEST_F(ZoomTest, ResetRestoresCentreAndSizeButNotTheAspect) {
  session.ChartAspect = 1.2f;
  ChartDrag drag;
  drag.Press(5000, 3000);
  EXPECT_TRUE(drag.Move(session, 5500, 3300));
  ZoomIn(session);
  const ZoomButtons buttons = ResetView(session);
  EXPECT_EQ(std::tuple(session.ChartCentreX, session.ChartCentreY, session.ChartRadius, session.ChartZoom),
            std::tuple(8000, 5000, 3000, 1));
  EXPECT_EQ(session.ChartAspect, 1.2f);
  EXPECT_TRUE(buttons.inEnabled && !buttons.outEnabled);
}

// The Analysis page opens at the zoom of the last visit, centred at y 5000,
// with the horizontal centre where the user left it, even at 0.
TEST_F(ZoomTest, AnalysisPageOpensAtTheLastZoomAndHorizontalCentre) {
  session.ChartZoom = 2.828427f;
  session.ChartCentreX = 0;
  session.ChartCentreY = 6100;
  LoadAnalysisView(session);
  EXPECT_FLOAT_EQ(session.ChartRadius, 3000 * 2.828427f);
  EXPECT_EQ(session.ChartCentreY, 5000);
  EXPECT_EQ(session.ChartCentreX, 0);
}

TEST_F(ZoomTest, DragMovesOnlyBelowTheStripBand) {
  ChartDrag drag;
  drag.Press(6000, 1800);
  EXPECT_FALSE(drag.Move(session, 6100, 1900));  // y ≤ 2000: ignored, anchor kept
  EXPECT_EQ(session.ChartCentreX, 8000);
  EXPECT_TRUE(drag.Move(session, 6500, 2100));   // the whole distance from the press
  EXPECT_EQ(session.ChartCentreX, 8500);
  EXPECT_EQ(session.ChartCentreY, 5300);
  EXPECT_TRUE(drag.Move(session, 6400, 2200));
  EXPECT_EQ(session.ChartCentreX, 8400);
  EXPECT_EQ(session.ChartCentreY, 5400);
}

// A typed factor is clamped to .5..1.5 and both boxes rewritten; a factor
// within the range leaves the boxes as they are.
TEST(AspectEntry, ClampsAndRewritesBothBoxes) {
  for (const auto& [typed, aspect, factor, percent] :
       {std::tuple{"2", 1.5f, "1.5", "150"}, {".3", 0.5f, ".5", "50"}, {"abc", 0.5f, ".5", "50"},
        {".8", 0.8f, "", ""}}) {
    Session session;
    InitialiseSession(session);
    const AspectTexts texts = AspectFactorEntered(session, typed);
    EXPECT_FLOAT_EQ(session.ChartAspect, aspect);
    EXPECT_EQ(texts.factor, factor);
    EXPECT_EQ(texts.percent, percent);
  }
}

TEST(AspectSpinner, WritesThePrintStyleFactor) {
  Session session;
  InitialiseSession(session);
  EXPECT_EQ(AspectPercentStepped(session, "120"), " 1.2");
  EXPECT_FLOAT_EQ(session.ChartAspect, 1.2f);
  EXPECT_EQ(AspectPercentStepped(session, "30"), " .5");
  const AspectTexts boxes = AspectBoxTexts(0.75f);
  EXPECT_EQ(boxes.factor, " .75");
  EXPECT_EQ(boxes.percent, " 75");
}

}  // namespace
}  // namespace kalvex
