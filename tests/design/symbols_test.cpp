#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "design/symbols.h"
#include "model/session.h"
#include "support/drawing_queries.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;
constexpr float kRv = 80;
constexpr float kS = 0.9f;

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
    // A vertical line of some length that ends on the ground rail.
    auto reachesGround = [&](int type) {
      return std::ranges::any_of(lines(type), [ground](const DrawCommand& line) {
        return std::fabs(line.a.x - line.b.x) < 1e-6 && std::fabs(line.a.y - line.b.y) > 50 &&
               std::fabs(std::max(line.a.y, line.b.y) - ground) < 1e-3;
      });
    };
    for (const auto& [shunt, series] : {std::pair{ShuntCapacitor, SeriesCapacitor}, {ShuntInductor, SeriesInductor},
                                        {ShuntSeriesLC, SeriesParallelLC}, {ShuntResistor, SeriesResistor}}) {
      EXPECT_TRUE(reachesGround(shunt)) << shunt;
      EXPECT_FALSE(reachesGround(series)) << series;
    }
  }
}

// Every member's width as its drawn signal rail shows it: the Design page's,
// the strip's (in units of its scale) and the library's series and shunt
// resistors, whose zigzag is the strip's shorter one.
TEST(Symbols, EachMemberIsAsWideAsItsRail) {
  auto rail = [](SymbolFamily family, int type) {
    DisplayList list;
    SymbolPen pen(list, family, kRv, kS);
    pen.ListY = 500;
    pen.DrawElementSymbol(type);
    return std::lround(testing::RailEnd(list, 500) / (family == SymbolFamily::Strip ? kS : 1));
  };
  std::vector<long> design, strip;
  for (int type = Empty; type <= SeriesResistor; ++type) design.push_back(rail(SymbolFamily::Design, type));
  for (int type = SeriesCapacitor; type <= ShuntResistor; ++type) strip.push_back(rail(SymbolFamily::Strip, type));
  EXPECT_EQ(design, (std::vector<long>{960, 1000, 960, 1060, 960, 1120, 800, 960, 1040, 1040, 640, 960, 1040}));
  EXPECT_EQ(rail(SymbolFamily::Design, InsertPlaceholder), 1000);
  EXPECT_EQ(strip, (std::vector<long>{960, 1200, 1500, 1200, 1400, 1240, 1240, 1320, 1320, 1200, 1240, 1480, 600}));
  EXPECT_EQ(std::pair(rail(SymbolFamily::Gallery, SeriesResistor), rail(SymbolFamily::Gallery, ShuntResistor)),
            std::pair(880L, 400L));
}

// The shunt stubs' tube walls: 300 and 460 below the rail on the Design page
// and on paper, 290 and 470 in the strip.
TEST(Symbols, ShuntStubWallsStandWhereEachMemberHasThem) {
  for (const auto& [family, upper, lower] : {std::tuple{SymbolFamily::Design, 300.0, 460.0},
                                             {SymbolFamily::Strip, 290.0, 470.0},
                                             {SymbolFamily::Paper, 300.0, 460.0}}) {
    DisplayList list;
    SymbolPen(list, family, kRv, kS).DrawElementSymbol(ShuntOpenStub);
    const double scale = family == SymbolFamily::Design ? 1 : kS;
    EXPECT_GT(std::min(testing::RailEnd(list, upper * scale), testing::RailEnd(list, lower * scale)), 0) << upper;
  }
}

}  // namespace
}  // namespace kalvex
