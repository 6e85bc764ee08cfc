#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "analysis/network_listing.h"
#include "design/schematic.h"
#include "design/symbols.h"
#include "model/session.h"
#include "support/drawing_queries.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;
constexpr float kRv = 80;
constexpr float kS = 0.9f;

// One symbol drawn by a member's pen on the rail at 500, and where the pen's
// cursor stands after it.
std::pair<DisplayList, double> Drawn(SymbolFamily family, int type) {
  DisplayList list;
  SymbolPen pen(list, family, kRv, kS);
  pen.ListY = 500;
  pen.DrawElementSymbol(type);
  return {list, pen.ListX};
}

// Which symbol a type gets: a shorted stub's far end returns to the rail
// where an open one stops, and the shunt forms reach down to the ground rail
// from the signal rail where the series forms do not.
TEST(Symbols, EachTypeDrawsItsOwnForm) {
  for (const SymbolFamily family : {SymbolFamily::Design, SymbolFamily::Strip}) {
    auto lines = [family](int type) { return testing::OfKind(Drawn(family, type).first, Kind::Line); };
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

// Every member's drawn signal rail ends where it leaves the cursor (the
// Design page's shunt-resistor body alone has no rail, the strip draws no
// wire); the gallery's resistors are the strip's shorter zigzag and the
// padded shunt one.
TEST(Symbols, EachMembersRailEndsAtTheCursor) {
  for (const SymbolFamily family : {SymbolFamily::Design, SymbolFamily::Strip, SymbolFamily::Gallery}) {
    for (int type = Empty; type <= InsertPlaceholder; ++type) {
      const auto [list, cursor] = Drawn(family, type);
      if (cursor > 0) EXPECT_NEAR(testing::RailEnd(list, 500), cursor, 1e-9) << static_cast<int>(family) << " " << type;
    }
  }
  EXPECT_EQ(Drawn(SymbolFamily::Gallery, SeriesResistor).second, 880);
  EXPECT_EQ(Drawn(SymbolFamily::Gallery, ShuntResistor).second, 400);
}

// Each stage's list of values is written at its cell's start (on the Design
// page after the separator's two leads, in the strip 90 right of it), and each
// type's cell is as wide as its symbol (the shunt resistor padded, in the strip
// two leads before it; the strip's empty stage and insert mark take none): a
// series resistor's "7 " after each type stands where that type's cell ends.
TEST(Symbols, EachTypesValuesStandAtItsCellsStart) {
  struct Cell {
    int16_t type;
    double design, strip;  // width, the strip's in units of its scale
  };
  for (const Cell& cell : {Cell{Empty, 1280, 0}, {SeriesCapacitor, 1320, 960}, {ShuntCapacitor, 1280, 1200},
                           {SeriesInductor, 1380, 1500}, {ShuntInductor, 1280, 1200}, {SeriesLine, 1440, 1400},
                           {SeriesShortedStub, 1120, 1240}, {SeriesOpenStub, 1280, 1240},
                           {ShuntShortedStub, 1360, 1320}, {ShuntOpenStub, 1360, 1320}, {ShuntSeriesLC, 960, 1200},
                           {SeriesParallelLC, 1280, 1240}, {SeriesResistor, 1360, 1480}, {ShuntResistor, 960, 1200},
                           {InsertPlaceholder, 1320, 0}}) {
    Session session = testing::WithStages(testing::SessionOnLoad(50, 0, 14e6),  // values usable by every type
                                          {{cell.type, {0, 2e-6, 14e6, 75, 100}}, {SeriesResistor, {0, 7}}});
    DisplayList design, strip;
    DrawNetwork(session, design, kRv);
    DrawNetworkListing(session, strip);
    // Stage 1's values start after the resistive load: at 1500 + 480 + 320 on
    // the Design page, at 400 + 600 × 0.9 + 90 in the strip.
    ASSERT_TRUE(testing::FindText(design, "7 ") && testing::FindText(strip, "7 ")) << cell.type;
    EXPECT_EQ(testing::FindText(design, "7 ")->a.x, 2300 + cell.design) << cell.type;
    EXPECT_NEAR(testing::FindText(strip, "7 ")->a.x, 1030 + cell.strip * kS, 1e-3) << cell.type;
  }
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

// A two-port block is a box between the rails with its file's name (without
// folders, a long one cut short) in the schematic, the strip and the printed
// schematic alike, and its placement under it.
TEST(Symbols, TwoPortBlockIsABoxNamedForItsFile) {
  Session session = testing::WithStages(testing::SessionOnLoad(50, 0, 1e6), {{Empty, {}}, {TwoPort, {0, 3, 1, 1}}});
  session.TwoPortBlocks[2].file = "/parts/murata_grm_100p.s2p";
  DisplayList schematic, strip;
  DrawNetwork(session, schematic, kRv);
  DrawNetworkListing(session, strip);
  for (const DisplayList* list : {&schematic, &strip}) {
    const std::vector<std::string> shown = testing::Texts(*list);
    EXPECT_EQ(std::ranges::count(shown, "murata_grm.."), 1);
    EXPECT_EQ(std::ranges::count(shown, "shunt, 2 shorted"), 1);
    EXPECT_EQ(std::ranges::count(shown, "ports swapped"), 1);
    EXPECT_FALSE(testing::OfKind(*list, Kind::OutlineRect).empty());
  }
  EXPECT_EQ(BlockNameOf(session, 2), "murata_grm_100p.s2p");
}

}  // namespace
}  // namespace kalvex
