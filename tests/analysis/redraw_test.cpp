#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "analysis/redraw.h"
#include "chart/chart_view.h"
#include "chart/grids.h"
#include "chart/network_path.h"
#include "chart/readout.h"
#include "design/symbols.h"
#include "model/format.h"
#include "model/number_text.h"
#include "support/drawing_queries.h"
#include "support/networks.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;

class RedrawTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session = testing::SessionOnLoad(50, 0, 14e6);
    session.ChartAspect = 0.75f;
    ResetView(session);
  }

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

constexpr Colour kStrongRed = RGB(255, 17, 17);
constexpr Colour kStrongGreen = RGB(17, 136, 17);

// Each grid type: which grids it draws (with their labels and the impedance
// grid's fine lines) and the colours it sets; kKept where it leaves one alone.
TEST_F(RedrawTest, GridTypesDrawTheirGridsInTheirColours) {
  constexpr Colour kKept = RGB(1, 2, 3);
  int16_t type = 0;
  for (const auto& [impedance, admittance, admittanceColour, impedanceColour] :
       {std::tuple{true, false, kKept, kStrongRed}, {true, true, RGB(102, 255, 102), kStrongRed},
        {true, true, kStrongGreen, kStrongRed}, {true, true, kStrongGreen, RGB(255, 153, 153)},
        {false, true, kStrongGreen, kKept}, {false, false, kStrongRed, kKept}}) {
    list.Reset();
    session.GridType = ++type;
    session.AdmittanceGridColour = session.ImpedanceGridColour = kKept;
    RedrawChart(session, list);
    EXPECT_EQ(std::pair(session.AdmittanceGridColour, session.ImpedanceGridColour), std::pair(admittanceColour, impedanceColour))
        << type;
    EXPECT_EQ(Label("+5", impedanceColour) != nullptr, impedance) << type;
    EXPECT_EQ(Label("-.5", admittanceColour) != nullptr, admittance) << type;
    EXPECT_EQ(!testing::LinesIn(list, RGB(255, 170, 170)).empty(), impedance) << type;
  }
  StepGridType(session);
  EXPECT_EQ(session.GridType, 1);  // round from six to one
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

// Every label of both grids stands beside the place its value names, in two
// different views: a signed value on the rim (a reactance, or a susceptance),
// an unsigned one on the real axis; the admittance grid is the impedance grid
// turned half round.
TEST_F(RedrawTest, LabelsStandBesideTheValuesTheyName) {
  for (const ChartView view : {ChartView{8000, 5000, 3000 * std::sqrt(2.0), 0.5},
                               ChartView{6500, 5200, 3000, 1.25}}) {
    for (const bool admittance : {false, true}) {
      list.Reset();
      admittance ? DrawAdmittanceGrid(list, view, kStrongGreen) : DrawImpedanceGrid(list, view, kStrongRed);
      const auto labels = testing::OfKind(list, Kind::Text);
      EXPECT_EQ(labels.size(), admittance ? 14u : 16u);
      for (const DrawCommand& label : labels) {
        const bool onRim = label.text[0] == '+' || label.text[0] == '-';
        const std::complex<double> z = onRim ? std::complex(0.0, std::stod(label.text)) : std::stod(label.text);
        const std::complex<double> g = (admittance ? -1.0 : 1.0) * (z - 1.0) / (z + 1.0);
        const Point place = view.GammaToPage({g.real(), g.imag()});
        EXPECT_NEAR(label.a.x, place.x, view.aspect * (0.07 * view.radius + 250)) << label.text << admittance;
        EXPECT_NEAR(label.a.y, place.y, 0.03 * view.radius + 250) << label.text << admittance;
      }
      EXPECT_NE(Label("0", admittance ? kStrongGreen : kStrongRed), nullptr);  // in the grid's colour
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
  // The index of the first command of `kind`, in `colour` unless that is 0.
  auto first = [&commands](Kind kind, Colour colour, auto also) {
    return std::find_if(commands.begin(), commands.end(), [&](const DrawCommand& c) {
             return c.kind == kind && (colour == 0 || c.colour == colour) && also(c);
           }) - commands.begin();
  };
  const auto any = [](const DrawCommand&) { return true; };
  const std::vector<std::ptrdiff_t> order = {
      first(Kind::Clear, 0, any), first(Kind::FillEllipse, kWhite, any), first(Kind::Line, RGB(255, 170, 170), any),
      first(Kind::Line, kStrongGreen, [](const DrawCommand& c) { return c.a.y == 5000 && c.b.y == 5000; }),
      first(Kind::LineWidth, 0, [](const DrawCommand& c) { return c.value == 2; }),
      first(Kind::Text, 0, [](const DrawCommand& c) { return c.text.starts_with("Chart"); }),
      first(Kind::Line, kSeparatorBlue, any), first(Kind::Line, StageArcColour(1), any),
      first(Kind::Line, RGB(17, 187, 187), any), first(Kind::Line, RGB(136, 17, 17), any),
      first(Kind::Ellipse, 0, [](const DrawCommand& c) { return c.b.x == 30; }), std::ptrdiff_t(commands.size())};
  for (std::size_t k = 1; k < order.size(); ++k) EXPECT_LT(order[k - 1], order[k]) << k;
  // The rim: 120 chords at width 2, in the outline colour of grid type 3.
  double width = 1;
  int rimChords = 0;
  for (const DrawCommand& c : commands) {
    if (c.kind == Kind::LineWidth) width = c.value;
    if (c.kind == Kind::Line && width == 2 && c.colour == kStrongGreen) ++rimChords;
  }
  EXPECT_EQ(rimChords, 120);
  // The path: a dot, then 1,000 points a stage, each stage in its own colour.
  EXPECT_EQ(std::ranges::count_if(commands, [](const DrawCommand& c) {
              return c.kind == Kind::Ellipse && c.colour == StageArcColour(1);
            }), 1);
  for (int stage = 1; stage <= 5; ++stage) {
    EXPECT_EQ(testing::LinesIn(list, StageArcColour(stage)).size(), stage == 1 ? 999u : 1000u) << stage;
  }
  // The strip's colour key is drawn again after the path, under the overlays.
  const auto lastBar = commands.rend() - std::find_if(commands.rbegin(), commands.rend(), [](const DrawCommand& c) {
                         return c.kind == Kind::FillRect && c.b.y == 75;
                       }) - 1;
  EXPECT_GT(lastBar, order[7]);
  EXPECT_LT(lastBar, order[8]);
}

// A strip that grew since the last drawing is cleared to its new width: the
// strip is drawn once before the redraw, whose clearing reads its edges.
TEST_F(RedrawTest, StripClearingFollowsAStripThatGrew) {
  RefreshAnalysis(session, list);
  session.Value[0][2] = 25;  // the load gains its coil: the strip grows
  session.ElementType[1] = SeriesResistor;
  list.Reset();
  RefreshAnalysis(session, list);
  const auto& commands = list.Commands();
  const auto clear = std::find_if(commands.begin(), commands.end(), [](const DrawCommand& c) { return c.kind == Kind::Clear; });
  const auto clearing = std::find_if(clear, commands.end(), [](const DrawCommand& c) {
    return c.kind == Kind::FillRect && c.colour == kPageBackground;
  });
  ASSERT_NE(clearing, commands.end());
  EXPECT_NEAR(clearing->b.x, session.PartRightEdge[5] + 0.9 * 1040 + 400, 1e-3);
}

TEST_F(RedrawTest, ReadoutsShowThePointsValues) {
  struct Case {
    Gamma at;
    std::vector<std::string> texts;  // rho, VSWR, return loss, R, X, G, B
  };
  for (const Case& c :
       {Case{{0, 0}, {" 0 @ 0 \u00b0", " 1:1   ", ">120dB", " 50 ", " 0 ", " 0.02 ", " 0 "}},
        Case{{0.5, 0}, {" 0.5 @ 0 \u00b0", " 3:1   ", " 6.0206dB", " 150 ", " 0 ", " 0.00667 ", " 0 "}},
        Case{{0, 0.5}, {" 0.5 @ 90 \u00b0", " 3:1   ", " 6.0206dB", " 30 ", " 40 ", " 0.012 ", " -0.016 "}}}) {
    const Point p = ChartView::Of(session).GammaToPage(c.at);
    const Readout r = ReadoutAt(session, p.x, p.y);
    EXPECT_TRUE(r.inside);
    EXPECT_EQ((std::vector<std::string>{r.rho, r.vswr, r.returnLoss, r.resistance, r.reactance, r.conductance, r.susceptance}),
              c.texts);
  }
}

// No double reflection gives a VSWR of exactly 1000 or a return loss of exactly
// 120 dB through the readout's formulas: the two neighbouring doubles either
// side of each limit show the number and the limit. The rim is inside, with
// no return loss. A view of radius 1 at the origin makes the page's x the
// reflection itself.
TEST_F(RedrawTest, ReadoutLimitsFallBetweenNeighbouringDoubles) {
  session.ChartCentreX = session.ChartCentreY = 0;
  session.ChartRadius = session.ChartAspect = 1;
  const auto at = [this](double rho) { return ReadoutAt(session, rho, 0); };
  const Readout rim = at(-1);
  EXPECT_TRUE(rim.inside && !at(1.01).inside);
  EXPECT_EQ(std::tuple(rim.rho, rim.vswr, rim.returnLoss), std::tuple(" 1 @ 180 \u00b0", " >1000:1   ", " 0dB"));
  EXPECT_EQ(at(0.99800199800199796).vswr, " 1000:1   ");  // VSWR 999.99999999997817
  EXPECT_EQ(at(0.99800199800199807).vswr, " >1000:1   ");  // 1000.0000000000339
  EXPECT_EQ(at(9.9999999999999974e-07).returnLoss, " 120dB");  // 119.99999999999999 dB
  EXPECT_EQ(at(9.9999999999999953e-07).returnLoss, ">120dB");  // 120.00000000000001 dB
}

// Negative zero is written as zero by every number text.
TEST(NumberTexts, WriteNegativeZeroAsZero) {
  for (const auto& text : std::vector<std::string (*)(double)>{FormatSI, FormatSmallSI, FormatGeneral,
                                                              FormatCapacitance, FormatInductance}) {
    EXPECT_EQ(text(-0.0), text(0.0));
  }
  EXPECT_EQ(std::tuple(FileNumber(-0.0), FileNumber(-0.0f), PlainNumberText(-0.0, 7), PrintNumberText(-0.0, 7)),
            std::tuple(FileNumber(0.0), FileNumber(0.0f), "0", " 0"));
}

TEST(Reflection, VSWROfAReflectionAboveOne) {
  EXPECT_EQ(std::tuple(VSWROf(2), VSWROf(0.5), VSWROf(1)), std::tuple(3.0, 3.0, 1e6));  // |(1 + 2) / (1 − 2)| = 3
}

}  // namespace
}  // namespace kalvex
