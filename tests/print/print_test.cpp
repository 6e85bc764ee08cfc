#include <gtest/gtest.h>

#include <algorithm>

#include "print/paper.h"
#include "print/print_chart.h"
#include "print/print_schematic.h"
#include "print/print_table.h"
#include "support/drawing_queries.h"
#include "support/fake_dialogs.h"
#include "support/networks.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;
constexpr Colour kSeparator = RGB(170, 170, 255);

// The line width in force at each line of a colour on the chart, below the
// schematic, in drawing order.
std::vector<double> WidthsOfLinesIn(const DisplayList& list, Colour colour) {
  std::vector<double> widths;
  double width = 1;
  for (const DrawCommand& c : list.Commands()) {
    if (c.kind == Kind::LineWidth) width = c.value;
    if (c.kind == Kind::Line && c.colour == colour && c.a.y > 3500) widths.push_back(width);
  }
  return widths;
}

// The text colour in force when `text` is printed.
Colour ColourOfText(const DisplayList& list, const std::string& text) {
  Colour colour = 0;
  for (const DrawCommand& c : list.Commands()) {
    if (c.kind == Kind::TextColour) colour = c.colour;
    if (c.kind == Kind::Text && c.text.starts_with(text)) return colour;
  }
  ADD_FAILURE() << "no text " << text;
  return 0;
}

class PrintTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session.ChartRadius = 3000;
    session.ArcsMode = 2;
  }
  Session session = testing::SessionOnLoad(50, 0, 1e6);
  DisplayList list;
  testing::FakeDialogs dialogs;
};

// Each grid type on paper: the grids in drawing order with their widths
// (0: none), the real axis (width 6) and the 120-chord rim (width 8) in the
// axis colour, and the caption in the last grid's label colour. The printout
// works on the session's arrays but never on the strip's edges.
TEST_F(PrintTest, PaperGridsPrintInTheirColoursAndWidths) {
  constexpr Colour kRed = RGB(255, 17, 17);
  constexpr Colour kGreen = RGB(17, 136, 17);
  struct Case {
    Colour first, second;
    double firstWidth, secondWidth;
    Colour axis, legend;
  } const cases[] = {{kRed, 0, 3, 0, kRed, kRed}, {RGB(153, 255, 153), kRed, 1, 3, 0, kRed},
                     {kGreen, kRed, 3, 3, 0, kRed}, {RGB(255, 204, 204), kGreen, 1, 3, 0, kGreen},
                     {kGreen, 0, 3, 0, kGreen, kGreen}, {0, 0, 0, 0, kRed, 0}};
  session = testing::FiveStageNetwork();
  std::tie(session.ChartRadius, session.ArcsMode, session.SweepShown) = std::tuple(3000, 2, 1);
  session.PartRightEdge = {1, 2, 3, 4, 5, 6};
  const Session before = session;
  for (int type = 1; type <= 6; ++type) {
    const Case& c = cases[type - 1];
    list.Reset();
    session.GridType = static_cast<int16_t>(type);
    DrawChartPage(session, list, "now");
    for (const auto& [colour, width] : {std::pair{c.first, c.firstWidth}, {c.second, c.secondWidth}}) {
      if (colour == 0) continue;
      const std::vector<double> widths = WidthsOfLinesIn(list, colour);
      EXPECT_GT(std::count(widths.begin(), widths.end(), width), 100) << type;
      for (const double w : widths) {
        EXPECT_TRUE(w == width || (colour == c.axis && (w == 6 || w == 8))) << type << " " << w;
      }
    }
    const std::vector<double> axis = WidthsOfLinesIn(list, c.axis);
    EXPECT_EQ(std::count(axis.begin(), axis.end(), 6.0), 1) << type;
    EXPECT_EQ(std::count(axis.begin(), axis.end(), 8.0), 120) << type;
    EXPECT_EQ(ColourOfText(list, "Chart normalized to 50 ohms"), c.legend);
  }
  EXPECT_EQ(std::tuple(session.PartRightEdge, session.Value, session.Frequency),
            std::tuple(before.PartRightEdge, before.Value, before.Frequency));
  EXPECT_NE(testing::FindText(list, "'F'= 1.1 MHz"), nullptr);  // the sweep's legend
}

// An empty network prints five separators at one place, the load's text left
// of the load's cell (further with a reactance), and the generator after the load.
TEST_F(PrintTest, EmptyNetworkPrintsTheLoadTextThenFiveSeparatorsAndTheGenerator) {
  for (const auto& [x, text, offset] : {std::tuple{-25.0, "50  -j25 ", 1600}, {0.0, "50 ", 800}}) {
    list.Reset();
    session.Value[0][2] = x;
    PrintSchematic(session, list);
    const std::vector<DrawCommand> separators = testing::LinesIn(list, kSeparator);
    ASSERT_EQ(separators.size(), 5u) << x;
    for (const DrawCommand& line : separators) EXPECT_EQ(line.a.x, separators[0].a.x) << x;
    EXPECT_EQ(testing::TextAt(list, separators[0].a.x - offset, 1000 + 1400), text);
  }
  // Without a reactance the load is the shunt resistor and its two trailing
  // leads of 300 x 1.2; the generator's lead follows at once.
  EXPECT_NEAR(testing::LinesIn(list, kSeparator)[0].a.x, 1500 + 2 * 360, 1e-3);
  EXPECT_NEAR(testing::RailEnd(list, 1000), 1500 + 3 * 360 + 1.2 * 680, 1e-3);
  EXPECT_EQ(testing::TextAt(list, 1500, 3000), "Frequency:  1 M");
}

// 41 lines on the first page, 44 on the others; above 40 lines a caution,
// and No to it prints nothing.
TEST_F(PrintTest, TablePagesAndCaution) {
  for (const auto& [points, pages, caution] :
       {std::tuple{40, 1, ""}, {41, 2, "1"}, {85, 3, "2"}, {120, 3, "3"}}) {
    session.SweepPoints = static_cast<int16_t>(points);
    for (int k = 0; k < points; ++k) session.SweepRho[k] = 0.5;
    dialogs = testing::FakeDialogs();
    dialogs.answers.push_back(MessageAnswer::Yes);
    PrintTable(session, dialogs);
    EXPECT_EQ(testing::OfKind(dialogs.printed, Kind::NewPage).size() + 1, std::size_t(pages)) << points;
    const std::string expected = "We have " + std::to_string(points) + " lines of data and so will use over " +
                                 caution + " sheets of paper. \r\nAre you sure you want to continue and print out the data?";
    EXPECT_EQ(TableCautionText(points), *caution == 0 ? "" : expected);
    EXPECT_EQ(dialogs.messages.empty(), *caution == 0) << points;
  }
  dialogs = testing::FakeDialogs();
  dialogs.answers.push_back(MessageAnswer::No);
  PrintTable(session, dialogs);
  EXPECT_TRUE(dialogs.printed.Commands().empty());
  EXPECT_EQ(std::tuple(dialogs.messages[0].title, dialogs.messages[0].buttons), std::tuple("Caution", MessageButtons::YesNo));
}

TEST_F(PrintTest, ACancelledDialogEndsTheChartSilentlyAndTheTableWithPrinterError) {
  dialogs.printerError = "Printing was cancelled.";
  PrintChart(session, dialogs);
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(dialogs.printedPage.width, kChartPaper.width);
  PrintTable(session, dialogs);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(std::tuple(dialogs.messages[0].title, dialogs.messages[0].text), std::tuple("Printer Error", "Printing was cancelled."));
  EXPECT_TRUE(dialogs.printed.Commands().empty());
}

}  // namespace
}  // namespace kalvex
