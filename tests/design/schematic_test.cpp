#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "design/schematic.h"
#include "design/symbols.h"
#include "support/drawing_queries.h"

namespace kalvex {
namespace {

using Kind = DrawCommand::Kind;

class SchematicTest : public ::testing::Test {
 protected:
  void SetUp() override {
    InitialiseSession(session);
    session.SystemZ = 50;
  }

  long CountOf(const std::string& text) const {
    const std::vector<std::string> texts = testing::Texts(list);
    return std::count(texts.begin(), texts.end(), text);
  }

  const DrawCommand* TextAt(const std::string& text) const {
    for (const DrawCommand& c : list.Commands()) {
      if (c.kind == Kind::Text && c.text == text) return &c;
    }
    return nullptr;
  }

  Session session;
  DisplayList list;
};

TEST_F(SchematicTest, EmptyNetworkIsFiveWiresBetweenSeparators) {
  const StagePositions stageX = DrawNetwork(session, list, 80);
  EXPECT_EQ(stageX[1], 2130);  // cursor 1500 + resistive load 480 + 150
  for (int s = 2; s <= 6; ++s) EXPECT_EQ(stageX[s], stageX[1] + 1280 * (s - 1));
  EXPECT_EQ(CountOf("(Wire)"), 5);
  EXPECT_EQ(testing::LinesIn(list, kSeparatorBlue).size(), 6u);
  // The separator lines fall 10 units right of each StageX.
  const auto separators = testing::LinesIn(list, kSeparatorBlue);
  for (int s = 1; s <= 5; ++s) EXPECT_EQ(separators[s - 1].a.x, stageX[s] + 10);
}

TEST_F(SchematicTest, LoadLabelRunsTheTextsTogether) {
  session.Value[0][1] = 50;
  session.Value[0][2] = -25;
  DrawNetwork(session, list, 80);
  const DrawCommand* label = TextAt("50  -j25 ");
  ASSERT_NE(label, nullptr);
  // The capacitive load ends at 1500 + 1000; both value texts are three long.
  EXPECT_EQ(label->a.x, 2500 - 600 - 60 * 3 - 60 * 3);
  EXPECT_EQ(label->a.y, 1900);
  ASSERT_NE(TextAt("LOAD"), nullptr);
  EXPECT_EQ(TextAt("LOAD")->a.x, 1800);

  session.Value[0][2] = 0;
  list.Reset();
  DrawNetwork(session, list, 80);
  ASSERT_NE(TextAt("50 "), nullptr);
  EXPECT_EQ(TextAt("50 ")->a.x, 1980 - 800);
}

TEST_F(SchematicTest, StageLabelsUnderEachPart) {
  session.ElementType[1] = SeriesCapacitor;
  session.Value[1][1] = 100e-12;
  session.Value[1][2] = 1000;
  session.ElementType[2] = SeriesLine;
  session.Value[2][1] = 45;
  session.Value[2][2] = 14e6;
  session.Value[2][3] = 75;
  session.ElementType[3] = SeriesInductor;
  session.Value[3][1] = -1e-6;  // drawn with its values all the same
  session.Value[3][2] = 200;
  DrawNetwork(session, list, 80);
  const std::vector<std::string> texts = testing::Texts(list);
  for (const char* expected : {"100 pF", "Q: 1 k", "45  deg", "@  14 M", "75  ohms", "-1 uH",
                               "Q: 200 "}) {
    EXPECT_NE(std::find(texts.begin(), texts.end(), expected), texts.end()) << expected;
  }
  ASSERT_TRUE(TextAt("100 pF") && TextAt("Q: 1 k") && TextAt("75  ohms"));
  EXPECT_EQ(TextAt("100 pF")->a.y, 1900);
  EXPECT_EQ(TextAt("Q: 1 k")->a.y, 2100);
  EXPECT_EQ(TextAt("75  ohms")->a.y, 2300);
  EXPECT_EQ(session.ElementType[3], SeriesInductor);
}

TEST_F(SchematicTest, UnusableStagesAreEmptied) {
  struct Case {
    int16_t type;
    std::array<double, 5> slots;
  };
  for (const Case& c : {Case{SeriesCapacitor, {0, 100e-12, 0}}, Case{ShuntCapacitor, {0, 0, 1000}},
                        Case{ShuntOpenStub, {0, 45, 14e6, 0}}, Case{ShuntSeriesLC, {0, 1e-6, 1, 0, 1}},
                        Case{SeriesResistor, {0, -5}}, Case{ShuntResistor, {0, 0}}}) {
    SetUp();
    session.ElementType[2] = c.type;
    std::copy(c.slots.begin(), c.slots.end(), session.Value[2].begin());
    list.Reset();
    const StagePositions stageX = DrawNetwork(session, list, 80);
    EXPECT_EQ(session.ElementType[2], Empty) << c.type;
    EXPECT_EQ(session.Value[2][1], c.slots[1]);  // the values stay
    EXPECT_EQ(stageX[3] - stageX[2], 1280);      // drawn as a wire
    EXPECT_EQ(CountOf("(Wire)"), 4);
  }
}

}  // namespace
}  // namespace kalvex
