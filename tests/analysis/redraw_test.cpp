#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "analysis/redraw.h"
#include "chart/chart_view.h"
#include "chart/grids.h"
#include "chart/network_path.h"
#include "chart/readout.h"
#include "design/symbols.h"
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
  Colour admittanceColour, impedanceColour;
};

constexpr Colour kStrongRed = RGB(255, 17, 17);
constexpr Colour kStrongGreen = RGB(17, 136, 17);
constexpr Colour kKept = RGB(1, 2, 3);  // a colour the type leaves as it was

class GridTypes : public RedrawTest, public ::testing::WithParamInterface<GridCase> {};

TEST_P(GridTypes, DrawTheirGridsInTheirColours) {
  const GridCase& c = GetParam();
  session.GridType = c.type;
  session.AdmittanceGridColour = session.ImpedanceGridColour = kKept;
  RedrawChart(session, list);
  EXPECT_EQ(session.AdmittanceGridColour, c.admittanceColour);
  EXPECT_EQ(session.ImpedanceGridColour, c.impedanceColour);
  EXPECT_EQ(Label("+5", c.impedanceColour) != nullptr, c.impedance);
  EXPECT_EQ(Label("-.5", c.admittanceColour) != nullptr, c.admittance);
  EXPECT_EQ(HasLinesIn(RGB(255, 170, 170)), c.impedance);  // the fine lines
}

INSTANTIATE_TEST_SUITE_P(
    SixTypes, GridTypes,
    ::testing::Values(GridCase{1, true, false, kKept, kStrongRed},
                      GridCase{2, true, true, RGB(102, 255, 102), kStrongRed},
                      GridCase{3, true, true, kStrongGreen, kStrongRed},
                      GridCase{4, true, true, kStrongGreen, RGB(255, 153, 153)},
                      GridCase{5, false, true, kStrongGreen, kKept},
                      GridCase{6, false, false, kStrongRed, kKept}));

TEST_F(RedrawTest, GridTypeStepsRoundFromSixToOne) {
  session.GridType = 6;
  StepGridType(session);
  EXPECT_EQ(session.GridType, 1);
  StepGridType(session);
  EXPECT_EQ(session.GridType, 2);
}

// The impedance grid's fine lines, counted from their formulas: 19 circles of
// 180 chords (r = 0, .1 .. .9, 1, 1.2 .. 1.8, 2, 3, 4, 5) and 36 arcs (±x for
// the same values but 0) from where they leave the unit circle, a0 = 90 +
// 2 arctan(1/x) in single precision, to 270 in steps of 2.
TEST_F(RedrawTest, FineImpedanceLinesFollowTheirFormulas) {
  const ChartView view = ChartView::Of(session);
  DrawImpedanceGrid(list, view, kStrongRed);
  std::vector<double> xs;
  for (float x = 0.1f; x < 1; x += 0.1f) xs.push_back(x);
  for (float x = 1; x < 2; x += 0.2f) xs.push_back(x);
  for (const double x : {2, 3, 4, 5}) xs.push_back(x);
  std::size_t arcChords = 0;
  for (const double x : xs) {
    const float a0 = static_cast<float>(90 + 2 * std::atan(1 / x) * 180 / std::numbers::pi);
    arcChords += 2 * static_cast<std::size_t>(std::floor((270 - a0) / 2));
  }
  const auto fine = testing::LinesIn(list, RGB(255, 170, 170));
  EXPECT_EQ(fine.size(), 19 * 180 + arcChords);
  for (const DrawCommand& line : fine) {
    const Gamma g = view.PageToGamma(line.a);
    EXPECT_LE(std::hypot(g.u, g.v), 1 + 1e-6);  // no fine line outside the chart
  }
}

// Labels stand at their formulas in two different views.
TEST_F(RedrawTest, LabelsStandAtTheirFormulas) {
  for (const ChartView view : {ChartView{8000, 5000, 3000 * std::sqrt(2.0), 0.5},
                               ChartView{6500, 5200, 3000, 1.25}}) {
    list.Reset();
    DrawImpedanceGrid(list, view, kStrongRed);
    DrawAdmittanceGrid(list, view, kStrongGreen);
    const double xc = view.centreX, yc = view.centreY, a = view.aspect, r = view.radius;
    struct Expected {
      const char* text;
      Colour colour;
      double x, y;
    };
    for (const Expected e : {Expected{"+5", kStrongRed, xc + a * 0.92 * r + 15, yc - 0.39 * r - 210},
                             Expected{"-.5", kStrongRed, xc - a * (0.62 * r + 180), yc + 0.82 * r - 90},
                             Expected{"+1", kStrongRed, xc - 180, yc - 0.999 * r - 240},
                             Expected{"+2", kStrongGreen, xc - a * (0.62 * r - 60), yc + 0.82 * r + 30},
                             Expected{"0", kStrongGreen, xc + a * 1.02 * r, yc - 120}}) {
      const DrawCommand* label = Label(e.text, e.colour);
      ASSERT_NE(label, nullptr) << e.text;
      EXPECT_NEAR(label->a.x, e.x, 1e-6) << e.text;
      EXPECT_NEAR(label->a.y, e.y, 1e-6) << e.text;
    }
  }
}

// The layers of a redraw, each first drawn after the one before: face, grids,
// axis, rim (in the outline colour), caption, strip, path, Q arcs, VSWR
// circle, sweep, colour bars.
TEST_F(RedrawTest, LayersComeInTheirOrder) {
  session = testing::FiveStageNetwork();
  ResetView(session);
  session.ChartAspect = 0.75f;
  session.GridType = 3;
  session.ArcsMode = 2;
  session.QArcsOn = session.VSWRCircleOn = session.SweepShown = 1;
  RefreshAnalysis(session, list);
  const auto& commands = list.Commands();
  auto first = [&commands](auto matches) {
    return std::find_if(commands.begin(), commands.end(), matches) - commands.begin();
  };
  auto line = [](Colour colour) {
    return [colour](const DrawCommand& c) { return c.kind == Kind::Line && c.colour == colour; };
  };
  const std::vector<std::ptrdiff_t> order = {
      first([](const DrawCommand& c) { return c.kind == Kind::Clear; }),
      first([](const DrawCommand& c) { return c.kind == Kind::FillEllipse && c.colour == kWhite; }),
      first(line(RGB(255, 170, 170))),
      first([](const DrawCommand& c) {
        return c.kind == Kind::Line && c.colour == kStrongGreen && c.a.y == 5000 && c.b.y == 5000;
      }),
      first([](const DrawCommand& c) { return c.kind == Kind::LineWidth && c.value == 2; }),
      first([](const DrawCommand& c) { return c.kind == Kind::Text && c.text.starts_with("Chart"); }),
      first(line(kSeparatorBlue)),
      first(line(StageArcColour(1))),
      first(line(RGB(17, 187, 187))),
      first(line(RGB(136, 17, 17))),
      first([](const DrawCommand& c) { return c.kind == Kind::Ellipse && c.b.x == 30; }),
      std::ptrdiff_t(commands.size())};
  for (std::size_t k = 1; k < order.size(); ++k) EXPECT_LT(order[k - 1], order[k]) << k;
  // The rim: 120 chords at width 2, in the outline colour of grid type 3.
  double width = 1;
  int rimChords = 0;
  for (const DrawCommand& c : commands) {
    if (c.kind == Kind::LineWidth) width = c.value;
    if (c.kind == Kind::Line && width == 2 && c.colour == kStrongGreen) ++rimChords;
  }
  EXPECT_EQ(rimChords, 120);
  const DrawCommand& bar = commands.back();
  EXPECT_EQ(bar.kind, Kind::FillRect);
  EXPECT_EQ(bar.b.y, 75);
}

// A strip that grew since the last drawing is cleared to its new width: the
// strip is drawn once before the redraw, whose clearing reads its edges.
TEST_F(RedrawTest, StripClearingFollowsAStripThatGrew) {
  RefreshAnalysis(session, list);
  session.Value[0][2] = 25;  // the load gains its coil: the strip grows
  session.ElementType[1] = SeriesResistor;
  session.Value[1][1] = 10;
  list.Reset();
  RefreshAnalysis(session, list);
  const auto& commands = list.Commands();
  const auto clear = std::find_if(commands.begin(), commands.end(),
                                  [](const DrawCommand& c) { return c.kind == Kind::Clear; });
  const auto clearing = std::find_if(clear, commands.end(), [](const DrawCommand& c) {
    return c.kind == Kind::FillRect && c.colour == kPageBackground;
  });
  ASSERT_NE(clearing, commands.end());
  EXPECT_NEAR(clearing->b.x, session.PartRightEdge[5] + 0.9 * 1040 + 400, 1e-3);
}

TEST_F(RedrawTest, CaptionShowsTheSystemImpedance) {
  EXPECT_EQ(ChartCaption(75), "Chart normalized to 75 ohms");
  EXPECT_EQ(ChartCaption(50.5), "Chart normalized to 50.5 ohms");
  EXPECT_EQ(ChartCaption(0.5), "Chart normalized to .5 ohms");
}

TEST_F(RedrawTest, PathIsPaintedInTheStageColoursFromADot) {
  const Session network = testing::FiveStageNetwork();
  session.ElementType = network.ElementType;
  session.Value = network.Value;
  DrawNetworkArcs(session, list);
  ASSERT_EQ(testing::OfKind(list, Kind::Ellipse).size(), 1u);  // the first point
  const auto lines = testing::OfKind(list, Kind::Line);
  ASSERT_EQ(lines.size(), 4999u);
  for (int stage = 1; stage <= 5; ++stage) {
    EXPECT_EQ(lines[1000 * stage - 2].colour, StageArcColour(stage)) << stage;
  }
  EXPECT_EQ(StageArcColour(4), RGB(238, 153, 17));
  EXPECT_EQ(session.ArcColour, 0);
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

TEST_F(RedrawTest, ReadoutBoundaries) {
  const Readout rim = ReadoutAt(session, 8000 - 0.75 * 3000, 5000);  // Γ = −1 exactly
  EXPECT_TRUE(rim.inside);
  EXPECT_EQ(rim.rho, " 1 @ 180 \u00b0");
  EXPECT_EQ(rim.vswr, " >1000:1   ");
  EXPECT_EQ(rim.returnLoss, " 0dB");
  // VSWR 999 shows its number, 1000 the limit; return loss 120 dB its number.
  const auto at = [this](double rho) {
    return ReadoutAt(session, 8000 + 0.75 * 3000 * rho, 5000);
  };
  EXPECT_EQ(at(998.0 / 1000).vswr, " 999:1   ");
  EXPECT_EQ(at(999.0 / 1001).vswr, " >1000:1   ");
  EXPECT_EQ(at(1.01e-6).returnLoss, " 119.91dB");
  EXPECT_EQ(at(0.99e-6).returnLoss, ">120dB");
  EXPECT_FALSE(at(1.01).inside);
}

TEST(Reflection, VSWROfAReflectionAboveOne) {
  EXPECT_DOUBLE_EQ(VSWROf(2), 3);  // |(1 + 2) / (1 − 2)|
  EXPECT_DOUBLE_EQ(VSWROf(0.5), 3);
  EXPECT_EQ(VSWROf(1), 1e6);
}

}  // namespace
}  // namespace kalvex
