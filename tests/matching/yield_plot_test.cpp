#include <gtest/gtest.h>

#include <functional>

#include "matching/yield_plot.h"
#include "platform/display_list.h"
#include "support/drawing_queries.h"
#include "support/five_stage_network.h"

namespace kalvex {
namespace {

constexpr Box kPage{0, 0, 12000, 9000};
constexpr Box kFrame{1300, 1000, 7700, 7600};
constexpr Colour kEnvelope = RGB(190, 205, 255);

Session Swept(Session session) {
  testing::SweepOver(session, 13.5e6, 15e6, 41);
  return session;
}

// Ten parts: every stage a shunt series LC.
Session TenParts() {
  Session session = Swept(testing::FiveStageNetwork());
  for (int s = 1; s <= kLastStage; ++s) {
    session.ElementType[s] = ShuntSeriesLC;
    session.Value[s] = {0, 0.1e-6 * s, 200, 100e-12 * s, 1000};
  }
  return session;
}

// Whatever the network, every text is whole on the page, clear of the others
// and of the frame, and the figures' column ends above the window's yield
// controls; the envelope's fill stays inside the frame.
TEST(YieldPlot, TextsNeitherOverlapNorReachTheControls) {
  struct Case { const char* name; std::function<Session()> network; YieldRequest request; bool computed; };
  YieldRequest tight;
  tight.goal = 1.05;
  tight.tolerances.line = 10;
  YieldRequest normal;
  normal.spread = Spread::Normal;
  normal.seed = 18'446'744'073'709'551'615ull;
  const Case cases[] = {
      {"five stages", [] { return Swept(testing::FiveStageNetwork()); }, {}, true},
      {"ten parts", TenParts, normal, true},
      {"far from the goal", [] { return Swept(testing::FiveStageNetwork()); }, tight, true},
      {"no sweep", [] { return testing::FiveStageNetwork(); }, {}, true},
      {"not yet computed", [] { return Swept(testing::FiveStageNetwork()); }, {}, false}};
  for (const Case& c : cases) {
    YieldRequest request = c.request;
    request.samples = 500;
    const YieldResult result = c.computed ? ComputeYield(c.network(), request) : YieldResult{};
    DisplayList plot;
    DrawYieldPlot(result, request, "recomputing", plot);
    const std::vector<Box> boxes = testing::TextBoxes(plot);
    ASSERT_FALSE(boxes.empty()) << c.name;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      EXPECT_TRUE(boxes[i].Inside(kPage)) << c.name << ": text " << i;
      EXPECT_TRUE(boxes[i].Inside(kFrame) || !boxes[i].Overlaps(kFrame)) << c.name << ": text " << i;
      if (boxes[i].left >= kFrame.right) { EXPECT_LE(boxes[i].bottom, kYieldFiguresBottom) << c.name << ": text " << i; }
      for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(boxes[i].Overlaps(boxes[j])) << c.name << ": " << j << ", " << i;
    }
    for (const DrawCommand& fill : testing::OfKind(plot, DrawCommand::Kind::FillRect)) {
      if (fill.colour != kEnvelope || fill.a.x >= kFrame.right) continue;
      EXPECT_TRUE((Box{fill.a.x, fill.a.y, fill.b.x, fill.b.y}.Inside(kFrame))) << c.name;
    }
  }
}

// The envelope's fill spans the frame with the 5-95 % band, and the ranking
// has a row for every toleranced part under its heading.
TEST(YieldPlot, FillsTheEnvelopeAndRanksEveryPart) {
  YieldRequest request;
  request.samples = 500;
  request.partTolerances = {{{2, 1, PartKind::Capacitor}, 0}};
  const YieldResult result = ComputeYield(Swept(testing::FiveStageNetwork()), request);
  DisplayList plot;
  DrawYieldPlot(result, request, "", plot);
  std::vector<DrawCommand> strips = testing::OfKind(plot, DrawCommand::Kind::FillRect);
  std::erase_if(strips, [](const DrawCommand& c) { return c.colour != kEnvelope || c.a.x >= kFrame.right; });
  ASSERT_FALSE(strips.empty());
  EXPECT_EQ(strips.front().a.x, kFrame.left);
  EXPECT_EQ(strips.back().b.x, kFrame.right);
  EXPECT_GT(std::abs(strips.front().b.y - strips.front().a.y), 20);  // a spread, not a line
  const double partColumn = 8100 + 650;
  int rows = 0;
  for (const DrawCommand& text : testing::OfKind(plot, DrawCommand::Kind::Text)) rows += text.a.x == partColumn;
  EXPECT_EQ(rows, 1 + 4);  // the heading and the parts but the exact capacitor
}

}  // namespace
}  // namespace kalvex
