#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "design/schematic.h"
#include "design/symbols.h"
#include "support/drawing_queries.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

using testing::FindText;

class SchematicTest : public ::testing::Test {
 protected:
  long Wires() const {
    const std::vector<std::string> texts = testing::Texts(list);
    return std::count(texts.begin(), texts.end(), "(Wire)");
  }
  Session session = testing::SessionOnLoad(50, 0, 1e6);
  DisplayList list;
};

// Stages 1280 apart from the resistive load's end (cursor 1500 + 480 + 150),
// each separator 10 right of its stage's start.
TEST_F(SchematicTest, EmptyNetworkIsFiveWiresBetweenSeparators) {
  const StagePositions stageX = DrawNetwork(session, list, 80);
  EXPECT_EQ(stageX[1], 2130);
  for (int s = 2; s <= 6; ++s) EXPECT_EQ(stageX[s], stageX[1] + 1280 * (s - 1));
  EXPECT_EQ(Wires(), 5);
  EXPECT_EQ(testing::TextAt(list, stageX[6] + 420, 1900), "50 ");  // the generator's impedance
  DisplayList library;
  DrawLibrary(library, 80);
  EXPECT_TRUE(testing::OfKind(library, DrawCommand::Kind::FillRect).empty());  // the library in black
  const auto separators = testing::LinesIn(list, kSeparatorBlue);
  ASSERT_EQ(separators.size(), 6u);
  for (int s = 1; s <= 5; ++s) EXPECT_EQ(separators[s - 1].a.x, stageX[s] + 10);
}

// The capacitive load ends at 1500 + 1000; its label runs both three-letter
// value texts together left of that. The resistive load is narrower.
TEST_F(SchematicTest, LoadLabelRunsTheTextsTogether) {
  for (const auto& [reactance, text, at, loadX] :
       {std::tuple{-25.0, "50  -j25 ", Point{2500 - 600 - 60 * 3 - 60 * 3, 1900}, 1800.0},
        {0.0, "50 ", Point{1980 - 800, 1900}, 1280.0}}) {
    session.Value[0] = {0, 50, reactance};
    list.Reset();
    DrawNetwork(session, list, 80);
    ASSERT_TRUE(FindText(list, text) && FindText(list, "LOAD")) << text;
    EXPECT_EQ(std::pair(FindText(list, text)->a.x, FindText(list, text)->a.y), std::pair(at.x, at.y));
    EXPECT_EQ(FindText(list, "LOAD")->a.x, loadX);
  }
}

// A part's value lines stand 200 apart under it; a negative inductance is
// drawn with its values as they are.
TEST_F(SchematicTest, StageLabelsUnderEachPart) {
  session = testing::WithStages(session, {{SeriesCapacitor, {0, 100e-12, 1000}}, {SeriesLine, {0, 45, 14e6, 75}},
                                          {SeriesInductor, {0, -1e-6, 200}}});
  DrawNetwork(session, list, 80);
  for (const auto& [text, y] : {std::pair{"100 pF", 1900}, {"Q: 1 k", 2100}, {"45  deg", 1900},
                                {"@  14 M", 2100}, {"75  ohms", 2300}, {"-1 uH", 1900}, {"Q: 200 ", 2100}}) {
    ASSERT_NE(FindText(list, text), nullptr) << text;
    EXPECT_EQ(FindText(list, text)->a.y, y) << text;
  }
  EXPECT_EQ(session.ElementType[3], SeriesInductor);
}

// The transformer shows its ratio and whichever winding inductances it has;
// the cable its length, impedance and velocity factor.
TEST_F(SchematicTest, CableAndTransformerShowTheirFigures) {
  session = testing::WithStages(session, {{Transformer, {0, 49, 20e-6, 0}}, {CoaxialCable, {0, 30, 75, 0.82, 0.6, 0.004}},
                                          {Transformer, {0, 2.25, 0, 1e-7}}});
  DrawNetwork(session, list, 80);
  for (const char* text : {"49:1", "Lm 20 uH", "30  m", "75  ohms", "VF 0.82 ", "2.25:1", "Ll 100 nH"}) {
    EXPECT_NE(FindText(list, text), nullptr) << text;
  }
  const std::vector<std::string> texts = testing::Texts(list);
  EXPECT_EQ(std::ranges::count_if(texts, [](auto& t) { return t.starts_with("Lm ") || t.starts_with("Ll "); }), 2);
  EXPECT_EQ(Wires(), 2);
}

// A cable is named after the catalogue cable whose four numbers it holds as
// the network file writes them (15 digits); one that differs beyond them, or
// a catalogue without it, leaves the cable's own numbers.
TEST_F(SchematicTest, ACableIsNamedAfterTheCatalogueCableOfItsNumbers) {
  const CableCatalogue catalogue = {{{"RG-8X", 50, 0.82, 0.9559, 0.025801}, {"RG-58", 50, 0.66, 1.3807, 0.022686}}, {}};
  struct Case {
    double velocityFactor, k2;
    CableCatalogue cables;
    std::vector<std::string> lines;
  };
  const std::vector<std::string> numbers = {"30  m", "50  ohms", "VF 0.66 "};
  for (const Case& c : {Case{0.66, 0.022686, catalogue, {"30  m", "RG-58"}},
                        Case{0.66, std::nextafter(0.022686, 1.0), catalogue, {"30  m", "RG-58"}},
                        Case{0.66, 0.022686 * (1 + 1e-13), catalogue, numbers},
                        Case{0.66, 0.0227, catalogue, numbers}, Case{0.66, 0.022686, {}, numbers}}) {
    EXPECT_EQ(PartValueLines(CoaxialCable, {0, 30, 50, c.velocityFactor, 1.3807, c.k2}, c.cables), c.lines) << c.k2;
  }
  session.Cables = catalogue;
  session.ElementType[4] = CoaxialCable;
  session.Value[4] = {0, 30, 50, 0.82, 0.9559, 0.025801};
  const StagePositions stageX = DrawNetwork(session, list, 80);
  ASSERT_NE(FindText(list, "RG-8X"), nullptr);
  const Point at = FindText(list, "RG-8X")->a;  // under the length, in the cable's cell
  EXPECT_EQ(at.y, 2100);
  EXPECT_TRUE(at.x > stageX[4] && at.x < stageX[5]) << at.x;
}

// Parts that cannot work are drawn as wires and their stage emptied; the
// values stay.
TEST_F(SchematicTest, UnusableStagesAreEmptied) {
  for (const auto& [type, slots] :
       {std::pair{SeriesCapacitor, std::array<double, 6>{0, 100e-12, 0}}, {ShuntCapacitor, {0, 0, 1000}},
        {ShuntOpenStub, {0, 45, 14e6, 0}}, {ShuntSeriesLC, {0, 1e-6, 1, 0, 1}},
        {SeriesResistor, {0, -5}}, {ShuntResistor, {0, 0}}, {CoaxialCable, {0, 10, 50, 0}},
        {CoaxialCable, {0, 0, 50, 0.66}}, {Transformer, {0, 0, 1e-5}}}) {
    session = testing::WithStages(session, {{Empty, {}}, {static_cast<int16_t>(type), slots}});
    list.Reset();
    const StagePositions stageX = DrawNetwork(session, list, 80);
    EXPECT_EQ(session.ElementType[2], Empty) << type;
    EXPECT_EQ(session.Value[2][1], slots[1]);
    EXPECT_EQ(stageX[3] - stageX[2], 1280);
    EXPECT_EQ(Wires(), 4);
  }
}

}  // namespace
}  // namespace kalvex
