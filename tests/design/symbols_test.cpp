#include <gtest/gtest.h>

#include "design/symbols.h"
#include "model/session.h"
#include "support/drawing_queries.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;
constexpr float kRv = 80;
constexpr float kS = 0.9f;

// Every symbol advances the cursor by its width (in units of the family's
// scale; the gallery's widths place the library's separators), and both rails
// run to its end.
TEST(Symbols, AdvanceByTheirWidthWithRailsToTheEnd) {
  for (const auto& [family, widths] :
       {std::pair{SymbolFamily::Design, std::vector<double>{960, 1000, 960, 1060, 960, 1120, 800,
                                                           960, 1040, 1040, 640, 960, 1040, 0, 1000}},
        std::pair{SymbolFamily::Strip, std::vector<double>{-1, 960, 1200, 1500, 1200, 1400, 1240,
                                                          1240, 1320, 1320, 1200, 1240, 1480, 600}}}) {
    const double scale = family == SymbolFamily::Strip ? kS : 1;
    for (int type = 0; type < std::ssize(widths); ++type) {
      if (widths[type] < 0) continue;
      DisplayList list;
      SymbolPen pen(list, family, kRv, kS);
      pen.ListX = 1000;
      pen.ListY = 500;
      pen.DrawElementSymbol(type);
      EXPECT_NEAR(pen.ListX, 1000 + widths[type] * scale, 1e-9) << type;
      EXPECT_EQ(pen.ListY, 500);
      if (widths[type] == 0) continue;
      EXPECT_NEAR(testing::RailEnd(list, 500), pen.ListX, 1e-9) << type;
      EXPECT_NEAR(testing::RailEnd(list, 500 + 1040 * scale), pen.ListX, 1e-9) << type;
    }
  }
}

// Which symbol a type gets: a shorted stub's far end returns to the rail
// where an open one stops, and the shunt forms reach down to the ground rail
// from the signal rail where the series forms do not.
TEST(Symbols, EachTypeDrawsItsOwnForm) {
  for (const SymbolFamily family : {SymbolFamily::Design, SymbolFamily::Strip}) {
    auto lines = [family](int type) {
      DisplayList list;
      SymbolPen pen(list, family, kRv, kS);
      pen.ListY = 500;
      pen.DrawElementSymbol(type);
      return testing::OfKind(list, Kind::Line);
    };
    EXPECT_GT(lines(SeriesShortedStub).size(), lines(SeriesOpenStub).size());
    EXPECT_GT(lines(ShuntShortedStub).size(), lines(ShuntOpenStub).size());
    const double ground = 500 + 1040 * (family == SymbolFamily::Strip ? kS : 1);
    auto reachesGround = [&](int type) {
      for (const DrawCommand& line : lines(type)) {
        if (std::fabs(line.a.x - line.b.x) < 1e-6 &&
            std::fabs(std::max(line.a.y, line.b.y) - ground) < 1e-3 &&
            std::fabs(line.a.y - line.b.y) > 50) {
          return true;
        }
      }
      return false;
    };
    for (const int shunt : {ShuntCapacitor, ShuntInductor, ShuntSeriesLC, ShuntResistor}) {
      EXPECT_TRUE(reachesGround(shunt)) << shunt;
    }
    for (const int series : {SeriesCapacitor, SeriesInductor, SeriesParallelLC, SeriesResistor}) {
      EXPECT_FALSE(reachesGround(series)) << series;
    }
  }
}

// A highlighted Design symbol is drawn in its colour over a backdrop; the
// wire and the strip's symbols get none.
TEST(Symbols, HighlightedDesignSymbolsGetTheirBackdropFirst) {
  for (const auto& [family, type, backdrop] : {std::tuple{SymbolFamily::Design, 1, true},
                                               {SymbolFamily::Design, 0, false},
                                               {SymbolFamily::Strip, 1, false}}) {
    DisplayList list;
    SymbolPen pen(list, family, kRv, kS);
    pen.ListX = 2000;
    pen.ListY = 700;
    pen.HighlightFlag = RGB(17, 136, 17);
    pen.DrawElementSymbol(type);
    const DrawCommand& first = list.Commands().front();
    EXPECT_EQ(first.kind == Kind::FillRect && first.colour == kBackdropGreen, backdrop) << type;
    if (!backdrop) continue;
    EXPECT_EQ(std::tuple(first.a.x, first.a.y, first.b.x, first.b.y), std::tuple(1800, 500, 3200, 1900));
    EXPECT_EQ(testing::LinesIn(list, RGB(17, 136, 17)).size(), testing::OfKind(list, Kind::Line).size());
  }
}

// The shunt stubs' tube walls: 300 and 460 below the rail on the Design page
// and on paper, 290 and 470 in the strip.
TEST(Symbols, ShuntStubWallsStandWhereEachMemberHasThem) {
  for (const auto& [family, upper, lower] : {std::tuple{SymbolFamily::Design, 300.0, 460.0},
                                             std::tuple{SymbolFamily::Strip, 290.0, 470.0},
                                             std::tuple{SymbolFamily::Paper, 300.0, 460.0}}) {
    DisplayList list;
    SymbolPen pen(list, family, kRv, kS);
    pen.DrawElementSymbol(ShuntOpenStub);
    const double scale = family == SymbolFamily::Design ? 1 : kS;
    EXPECT_GT(testing::RailEnd(list, upper * scale), 0) << upper;
    EXPECT_GT(testing::RailEnd(list, lower * scale), 0) << lower;
  }
}

// In the strip coils hang 30 below the rail, and a line's tube ends have
// radius 80·S, not the coil radius, with its upper wall 95·S above the rail.
TEST(Symbols, StripExceptionsHangCoilsAndWidenTubes) {
  for (const int type : {SeriesInductor, SeriesLine}) {
    DisplayList list;
    SymbolPen pen(list, SymbolFamily::Strip, kRv, kS);
    pen.ListY = 180;
    pen.DrawElementSymbol(type);
    for (const DrawCommand& arc : testing::OfKind(list, Kind::Ellipse)) {
      if (type == SeriesInductor) EXPECT_NEAR(arc.a.y, 210, 1e-9);
      EXPECT_NEAR(type == SeriesInductor ? arc.b.x : arc.b.y, 80 * kS, 1e-4);
    }
    if (type == SeriesLine) EXPECT_GT(testing::RailEnd(list, 180 - 95 * static_cast<double>(kS)), 0);
  }
}

TEST(Symbols, GeneratorShowsTheSystemImpedance) {
  DisplayList list;
  SymbolPen pen(list, SymbolFamily::Design, kRv);
  pen.ListX = 9000;
  pen.ListY = 700;
  pen.DrawGenerator(75);
  EXPECT_EQ(testing::Texts(list), (std::vector<std::string>{"75 ", "GEN"}));
  ASSERT_NE(testing::TextAt(list, 9250, 1900), nullptr);
  EXPECT_EQ(testing::TextAt(list, 9250, 1900)->text, "75 ");
}

}  // namespace
}  // namespace kalvex
