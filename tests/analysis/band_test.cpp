#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <complex>
#include <functional>
#include <sstream>
#include <numbers>

#include "analysis/band.h"
#include "analysis/band_plot.h"
#include "analysis/band_text.h"
#include "platform/display_list.h"
#include "support/drawing_queries.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

// An ideal series L and C resonant at 14 MHz on a matched 50 ohm load, swept
// over 10..18 MHz.
Session SeriesResonance() {
  Session session = testing::SessionOnLoad(50, 0, 14e6);
  session.ElementType[1] = SeriesInductor;
  session.Value[1][1] = 1e-6;
  session.ElementType[2] = SeriesCapacitor;
  session.Value[2][1] = 1 / (std::pow(kTwoPi * 14e6, 2) * 1e-6);
  testing::SweepOver(session, 10e6, 18e6, 81);
  return session;
}

// The same sweep with no network: the load R + jX alone.
Session BareLoad(double r, double x) {
  Session session = SeriesResonance();
  session.ElementType[1] = session.ElementType[2] = Empty;
  session.Value[0][1] = r;
  session.Value[0][2] = x;
  return session;
}

// The band edges at VSWR 2 lie where ωL − 1/(ωC) = ∓50/√2: the roots of
// Lω² ∓ 35.355ω − 1/C = 0.
TEST(BandFigures, EdgesSolveTheCalculation) {
  const Session session = SeriesResonance();
  const BandFigures figures = ComputeBandFigures(session, {2});
  const double l = 1e-6;
  const double c = session.Value[2][1];
  const double x = 50 / std::sqrt(2.0);
  const auto edge = [&](double sign) { return (sign * x + std::sqrt(x * x + 4 * l / c)) / (2 * l) / kTwoPi; };
  ASSERT_EQ(figures.edges.size(), 1u);
  EXPECT_NEAR(*figures.edges[0].low / edge(-1), 1, 1e-9);
  EXPECT_NEAR(*figures.edges[0].high / edge(1), 1, 1e-9);
  EXPECT_NEAR(*figures.edges[0].percent, 100 * (edge(1) - edge(-1)) / 14e6, 1e-6);
  EXPECT_NEAR(figures.best.vswr, 1, 1e-6);
  EXPECT_EQ(figures.worst.frequency, 10e6);  // the capacitor's side is steeper
}

// With load data the load between two points lies on the straight line
// between them: a load of 50 ohms with a reactance, or a resistance alone, is
// at VSWR 2 where |X| reaches 50 (2 − 1) / √2 or R reaches 100, so each edge
// falls where that line meets the level, not at a point nor halfway. Changing
// the points' loads moves the edges with them.
TEST(BandFigures, EdgesBetweenLoadDataPointsTakeTheLoadOnTheLineBetweenThem) {
  const double xAt2 = 50 / std::sqrt(2.0);
  struct Case { std::array<double, 5> r, x; double low, high; };  // r and x at 12, 13, ..., 16 MHz
  for (const Case& c : {
           Case{{200, 75, 50, 60, 250}, {}, 12e6 + 1e6 * 100 / 125, 15e6 + 1e6 * 40 / 190},
           Case{{200, 90, 50, 60, 130}, {}, 12e6 + 1e6 * 100 / 110, 15e6 + 1e6 * 40 / 70},
           Case{{50, 50, 50, 50, 50}, {-100, -20, 0, 10, 60}, 12e6 + 1e6 * (100 - xAt2) / 80,
                15e6 + 1e6 * (xAt2 - 10) / 50}}) {
    Session session;
    InitialiseSession(session);
    session.LoadSource = 2;
    session.SweepPoints = 5;
    for (int k = 1; k <= 5; ++k) {
      std::tie(session.LoadFreq[k], session.LoadR[k], session.LoadX[k]) = std::tuple(11e6 + k * 1e6, c.r[k - 1], c.x[k - 1]);
    }
    const BandFigures figures = ComputeBandFigures(session, {2});
    ASSERT_TRUE(figures.edges[0].low && figures.edges[0].high);
    EXPECT_NEAR(*figures.edges[0].low / c.low, 1, 1e-8) << c.r[1];
    EXPECT_NEAR(*figures.edges[0].high / c.high, 1, 1e-8) << c.r[4];
  }
}

// The Bode–Fano limit of a series RC from its formula, and the parallel form
// of the same load.
TEST(BandFigures, BodeFanoBoundOfASeriesRC) {
  const BandFigures figures = ComputeBandFigures(BareLoad(50, -100));
  const double c = 1 / (kTwoPi * 14e6 * 100);
  const double gamma = std::exp(-std::numbers::pi * 50 * c / (1 / (kTwoPi * 10e6) - 1 / (kTwoPi * 18e6)));
  EXPECT_TRUE(figures.series.capacitive);
  EXPECT_NEAR(figures.series.reactive, c, 1e-24);
  EXPECT_NEAR(figures.series.gamma, gamma, 1e-12);
  EXPECT_NEAR(*figures.series.returnLoss, -20 * std::log10(gamma), 1e-9);
  // In parallel: G + jB = 0.004 + j0.008, so R = 250 and C = 0.008 / ω0.
  const double cp = 0.008 / (kTwoPi * 14e6);
  EXPECT_NEAR(figures.parallel.r, 250, 1e-9);
  EXPECT_NEAR(figures.parallel.gamma, std::exp(-std::numbers::pi / (250 * cp) / (kTwoPi * 8e6)), 1e-12);
}

// A load no network was built for keeps its VSWR of 4: no edges, and a plain
// resistance sets no bound. A lossless one (R = 0) cannot be matched over any
// band: the bound is |Gamma| = 1 in both forms and the report says so. A bound
// or a match below the matched reflection reads as the status line reads it,
// not as the rounding's 4e-24 and 467 dB.
TEST(BandFigures, ReportOfLoadsNoNetworkMatches) {
  const BandFigures resistance = ComputeBandFigures(BareLoad(200, 0));
  for (const BandEdges& e : resistance.edges) EXPECT_FALSE(e.low || e.high || e.hertz || e.percent) << e.vswr;
  EXPECT_NEAR(resistance.worst.vswr, 4, 1e-9);
  EXPECT_FALSE(resistance.boundUsed);
  const BandFigures lossless = ComputeBandFigures(BareLoad(0, -100));
  for (const BodeFanoFit& fit : {lossless.series, lossless.parallel}) EXPECT_TRUE(fit.lossless && fit.gamma == 1);
  EXPECT_FALSE(lossless.boundUsed);
  EXPECT_NE(BandReport(lossless).find("no match is possible over a band"), std::string::npos);
  BandFigures matched = ComputeBandFigures(BareLoad(50, 0));
  matched.series = {true, 36, 560e-12, 4.5e-24, 1, 467, false};
  const std::string report = BandReport(matched);
  EXPECT_NE(report.find("|Gamma| >= 0, VSWR 1, return loss > 120 dB"), std::string::npos) << report;
  EXPECT_NE(report.find("Worst: VSWR 1, return loss > 120 dB"), std::string::npos) << report;
}

// Fixed, the load is R + jX at every frequency; fitted, R with the capacitor or
// inductor of X at the working frequency, whose reactance scales with 1/f or f.
TEST(BandFigures, LoadModelSetsTheLoadAcrossTheBand) {
  for (const auto& [x, f, fittedX] : {std::tuple(-100.0, 7e6, -200.0), {-100.0, 28e6, -50.0}, {60.0, 28e6, 120.0},
                                      {60.0, 7e6, 30.0}, {0.0, 28e6, 0.0}}) {
    EXPECT_EQ(LoadAtFrequency({20, x}, 14e6, f, LoadModel::Fixed).X, x);
    const Impedance fitted = LoadAtFrequency({20, x}, 14e6, f, LoadModel::Fitted);
    EXPECT_NEAR(fitted.X, fittedX, 1e-12);
    EXPECT_EQ(fitted.R, 20);
  }
  // 50 - j100 alone: at 10 MHz, fitted, the load is 50 - j140.
  const BandFigures fitted = ComputeBandFigures(BareLoad(50, -100), {2}, LoadModel::Fitted);
  EXPECT_EQ(fitted.worst.frequency, 10e6);
  const double rho = std::abs(std::complex<double>(0, -140) / std::complex<double>(100, -140));
  EXPECT_NEAR(fitted.worst.vswr, (1 + rho) / (1 - rho), 1e-9);
  EXPECT_NE(BandReport(fitted).find("load model fitted"), std::string::npos);
}

// The plot: each threshold's line and label, the edges marked, the bound
// dashed, and beside it, word for word however the column wraps its lines,
// the figures kalvex-cli band prints.
TEST(BandPlot, DrawsThresholdsEdgesAndBound) {
  const BandFigures figures = ComputeBandFigures(SeriesResonance());
  DisplayList plot;
  DrawBandPlot(figures, BandQuantity::VSWR, plot);
  const std::vector<std::string> texts = testing::Texts(plot);
  for (const char* label : {"VSWR 1.5", "VSWR 2", "VSWR 3", "f0 14 MHz", "Frequency (Hz)"}) {
    EXPECT_NE(std::find(texts.begin(), texts.end(), label), texts.end()) << label;
  }
  // Each edge found (VSWR 3 is not reached above the band's centre) is a circle on its line.
  std::size_t edges = 0;
  for (const BandEdges& e : figures.edges) edges += (e.low ? 1 : 0) + (e.high ? 1 : 0);
  EXPECT_EQ(edges, 5u);
  EXPECT_EQ(testing::OfKind(plot, DrawCommand::Kind::Ellipse).size(), edges);
  for (const DrawCommand& circle : testing::OfKind(plot, DrawCommand::Kind::Ellipse)) {
    const auto lines = testing::LinesIn(plot, RGB(238, 153, 17));
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const DrawCommand& l) {
      return std::fabs(l.a.y - circle.a.y) < 1e-9 && l.a.x < circle.a.x && l.b.x > circle.a.x;
    }));
  }
  std::string shown;
  for (const DrawCommand& c : testing::OfKind(plot, DrawCommand::Kind::Text)) {
    if (c.a.x >= 8000) shown += c.text + " ";
  }
  const auto words = [](const std::string& text) {
    std::istringstream in(text);
    std::string joined;
    for (std::string word; in >> word;) joined += word + " ";
    return joined;
  };
  EXPECT_EQ(words(shown), words(BandReport(figures)));
}

// However far the curve runs, every label stands clear of the others and of
// the plot's frame, whole on the page, and the curve and the thresholds stay
// in view below the frame's top.
TEST(BandPlot, LabelsNeitherOverlapNorLeaveThePage) {
  const Box page{0, 0, kBandPage.width, kBandPage.height};
  const Box frame{1300, 1000, 7700, 7600};
  struct Case { const char* name; std::function<void(Session&)> change; };
  const Case cases[] = {
      {"resonance", [](Session&) {}},
      {"VSWR 20 to 28", [](Session& s) { s.ElementType[2] = Empty, s.Value[0][1] = 1000; }},
      {"narrow sweep", [](Session& s) { s.SweepStart = 13.9e6, s.SweepStop = 14.1e6; }},
      {"edge at the band's end", [](Session& s) { s.SweepStart = 13e6; }},
      {"open circuit", [](Session& s) { s = BareLoad(1e12, 0); }}};
  for (const Case& c : cases) {
    for (const BandQuantity quantity : {BandQuantity::VSWR, BandQuantity::ReturnLoss, BandQuantity::Gamma}) {
      Session session = SeriesResonance();
      c.change(session);
      DisplayList plot;
      DrawBandPlot(ComputeBandFigures(session), quantity, plot);
      const std::string where = std::string(c.name) + ", " + BandQuantityName(quantity);
      const std::vector<Box> boxes = testing::TextBoxes(plot);
      for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_TRUE(boxes[i].Inside(page)) << where << ": label " << i;
        EXPECT_TRUE(boxes[i].Inside(frame) || !boxes[i].Overlaps(frame)) << where << ": label " << i;
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(boxes[i].Overlaps(boxes[j])) << where << ": " << j << ", " << i;
      }
      const auto curve = testing::LinesIn(plot, RGB(17, 17, 255));
      ASSERT_FALSE(curve.empty()) << where;
      if (quantity == BandQuantity::VSWR) {
        for (const DrawCommand& line : curve) EXPECT_GT(line.b.y, frame.top + 100) << where;
      }
      for (const DrawCommand& line : testing::LinesIn(plot, RGB(238, 153, 17))) {
        EXPECT_TRUE(line.a.y > frame.top && line.a.y < frame.bottom) << where;
      }
    }
  }
}

}  // namespace
}  // namespace kalvex
