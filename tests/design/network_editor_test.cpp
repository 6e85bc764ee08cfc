#include <gtest/gtest.h>

#include "design/network_editor.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

// The library's hit intervals on both rows; between and outside the rows
// nothing is picked.
TEST(LibraryIntervals, PickThePartUnderTheClick) {
  for (const auto& [x, y, part] :
       {std::tuple{2500, 6000, -1}, {2501, 6000, 0}, {3501, 6000, 1}, {4700, 6000, 1}, {4701, 6000, 2},
        {5801, 6000, 3}, {7000, 6000, 3}, {7001, 6000, 4}, {8001, 6000, 5}, {9201, 6000, 6}, {11299, 6000, 6},
        {3000, 7500, 7}, {3501, 7500, 8}, {4701, 7500, 9}, {6900, 7500, 10}, {6901, 7500, 11}, {8001, 7500, 12},
        {10000, 7500, 13}, {10001, 7500, 14}, {3000, 5400, -1}, {3000, 6900, -1}, {3000, 8200, -1}}) {
    EXPECT_EQ(LibraryPartAt(x, y), part) << x << "," << y;
  }
}

class NetworkEditorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session.DefaultCapacitorQ = 1000;
    session.DefaultInductorQ = 100;
    editor.Open();
  }

  // A click in the middle of stage s's cell, then on the type's part in the library.
  void PickType(int stage, int type) {
    static constexpr double kX[] = {3000, 4000, 5000, 6500, 7500, 8500, 10000,
                                    3000, 4000, 5000, 6500, 7500, 8500, 9500, 10500};
    editor.MouseDown(editor.StageX[stage] + 200, 1000);
    editor.MouseDown(kX[type], type <= 6 ? 6000 : 7500);
  }
  void Type(const std::vector<const char*>& texts) {
    int i = 0;
    for (const char* text : texts) editor.controls.value[i++].text = text;
  }
  // The stages' types and first values, 1..5.
  using Stages = std::vector<std::pair<int, double>>;
  Stages StagesNow() const {
    Stages all;
    for (int s = 1; s <= 5; ++s) all.emplace_back(session.ElementType[s], session.Value[s][1]);
    return all;
  }

  Session session = testing::SessionOnLoad(50, 0, 1e6);
  NetworkEditor editor{session, 80};
  const std::shared_ptr<const TwoPortTable> block =
      std::make_shared<const TwoPortTable>(std::vector<TwoPortTable::Point>{{1e6, {}}}, 50);
};

TEST_F(NetworkEditorTest, SelectingTheLoadShowsItsValues) {
  session.Value[0] = {0, 36.5, -12};
  editor.Open();
  editor.MouseDown(editor.StageX[1] - 600, 1000);
  EXPECT_EQ(std::tuple(editor.EditStage, editor.LibraryArmed), std::tuple(0, 0));
  const auto& boxes = editor.controls.value;
  EXPECT_EQ(std::tuple(boxes[0].caption, boxes[1].caption, boxes[1].text),
            std::tuple("R (ohms): ", "X (ohms): ", "-12 "));
  EXPECT_FALSE(boxes[2].shown || editor.controls.dontAcceptShown);
  EXPECT_TRUE(editor.controls.acceptShown);

  Type({"0.05", "7"});
  editor.Accept();
  EXPECT_EQ(session.Value[0][1], 50);  // below 0.1 ohm
  editor.MouseDown(editor.StageX[1] - 600, 1000);
  Type({"-20", "-7"});  // a negative resistance counts by its size
  editor.Accept();
  EXPECT_EQ(std::pair(session.Value[0][1], session.Value[0][2]), std::pair(20.0, -7.0));
  EXPECT_EQ(editor.EditStage, NetworkEditor::kNothing);
  editor.MouseDown(editor.StageX[3] + 1, 1000);  // a stage: the library hint replaces the select hint
  EXPECT_TRUE(editor.EditStage == 3 && editor.controls.libraryHintShown && !editor.controls.selectHintShown);
}

// Every type's values are brought within range on Accept; a stub of no
// length is stored, then shown as a wire by the redraw.
TEST_F(NetworkEditorTest, AcceptStoresTheValuesWithinRange) {
  struct Case {
    int type;
    std::vector<const char*> texts;
    std::array<double, 5> stored;
    int shownType = -1;  // after the redraw; -1: the type itself
  };
  for (const Case& c : std::initializer_list<Case>{
           Case{1, {"0", "0"}, {0, 1e-12, 1000}}, Case{2, {"-100p", "1"}, {0, 1e-10, 2}},
           Case{3, {"-10n", "-50"}, {0, -1e-8, 50}}, Case{4, {"-10n", "0"}, {0, -1e-8, 100}},
           Case{5, {"0", "1k", "-75"}, {0, 1, 10000, 75}}, Case{5, {"30", "20G", "0"}, {0, 30, 1e10, 1}},
           Case{6, {"0", "14M", "0.5"}, {0, 0, 14e6, 1}, Empty}, Case{7, {"45", "14M", "50"}, {0, 45, 14e6, 50}},
           Case{8, {"-90", "7M", "300"}, {0, 90, 7e6, 300}}, Case{9, {"10", "5", "50"}, {0, 10, 10000, 50}},
           Case{10, {"1p", "0", "-1", "0"}, {0, 1e-9, 100, 1, 1000}},
           Case{11, {"1u", "3", "-5p", "1"}, {0, 1e-6, 3, 1e-12, 2}},  // a series LC keeps C's sign
           Case{12, {"0.5"}, {0, 1}}, Case{13, {"-2k"}, {0, 2000}}}) {
    PickType(2, c.type);
    EXPECT_FALSE(editor.controls.analyzeEnabled);  // Analyze waits for the decision
    Type(c.texts);
    editor.Accept();
    EXPECT_EQ(session.ElementType[2], c.shownType < 0 ? c.type : c.shownType) << c.type;
    for (int k = 1; k <= 4; ++k) EXPECT_DOUBLE_EQ(session.Value[2][k], c.stored[k]) << c.type << k;
    EXPECT_TRUE(editor.controls.analyzeEnabled);
  }
}

TEST_F(NetworkEditorTest, PickingShowsThePartsCaptionsAndPrefills) {
  session = testing::WithStages(session, {{SeriesLine, {0, 45, 14e6, 75}}});
  editor.Open();
  PickType(1, SeriesOpenStub);  // another line type keeps nothing: values zeroed
  EXPECT_EQ(session.Value[1][1], 0);
  EXPECT_EQ(editor.controls.value[2].caption, "Impedance (ohms): ");
  EXPECT_TRUE(editor.controls.dontAcceptShown);
  editor.DontAccept();
  PickType(1, SeriesLine);  // the same part again keeps the values
  EXPECT_EQ(session.Value[1][2], 14e6);
  EXPECT_EQ(std::tuple(editor.controls.value[0].text, editor.controls.value[1].text,
                       editor.controls.value[2].text), std::tuple("45 ", " 14 M", "75 "));
}

TEST_F(NetworkEditorTest, InsertingShiftsTheLaterStagesRight) {
  for (int s = 1; s <= 5; ++s) std::tie(session.ElementType[s], session.Value[s][1]) = std::pair(SeriesResistor, 10.0 * s);
  editor.Open();
  PickType(2, InsertPlaceholder);
  EXPECT_TRUE(editor.controls.removeShown);  // stage five will be lost
  editor.Accept();
  EXPECT_FALSE(editor.controls.removeShown);
  EXPECT_EQ(StagesNow(), (Stages{{12, 10}, {14, 0}, {12, 20}, {12, 30}, {12, 40}}));
  PickType(1, InsertPlaceholder);  // at stage one every part moves right
  editor.Accept();
  EXPECT_EQ(StagesNow(), (Stages{{14, 0}, {12, 10}, {14, 0}, {12, 20}, {12, 30}}));
  PickType(5, InsertPlaceholder);  // at stage five nothing moves; its part is lost
  editor.Accept();
  EXPECT_EQ(StagesNow(), (Stages{{14, 0}, {12, 10}, {14, 0}, {12, 20}, {14, 0}}));
}

// A cable's five values come back exactly when a pick on it is refused,
// move whole with an insertion before it (as a two-port block's file does),
// and go whole with the plain wire.
TEST_F(NetworkEditorTest, ACableKeepsItsFiveValuesWhole) {
  const std::array<double, kSlotCount> cable = {0, 30.48, 50, 0.66, 1.3807, 0.022686};
  session.ElementType = {0, Empty, CoaxialCable, Empty, TwoPort};
  session.Value[2] = cable;
  session.Value[4][1] = 1;
  session.TwoPortBlocks[4] = {"block.s2p", block};
  editor.Open();
  PickType(2, SeriesCapacitor);
  EXPECT_EQ(session.Value[2][5], 0);
  editor.DontAccept();
  EXPECT_EQ(std::tuple(session.ElementType[2], session.Value[2]), std::tuple(CoaxialCable, cable));
  PickType(2, InsertPlaceholder);
  editor.Accept();
  EXPECT_EQ(std::tuple(session.ElementType[3], session.Value[3]), std::tuple(CoaxialCable, cable));
  EXPECT_EQ(std::tuple(session.ElementType[5], session.TwoPortBlocks[5].file, session.TwoPortBlocks[5].table),
            std::tuple(TwoPort, "block.s2p", block));
  PickType(3, Empty);
  EXPECT_EQ(session.Value[3], (std::array<double, kSlotCount>{}));
}

// Leaving the page closes the gaps and removes parts that cannot work (a
// capacitor without Q); a negative inductance stays, and a two-port block
// takes its file along.
TEST_F(NetworkEditorTest, CompactClosesTheGaps) {
  session = testing::WithStages(session, {{SeriesCapacitor, {0, 1e-10, 0}}, {SeriesInductor, {0, -1e-6, 50}},
                                          {InsertPlaceholder, {}}, {SeriesResistor, {0, 10}}, {TwoPort, {0, 1}}});
  session.TwoPortBlocks[5] = {"block.s2p", block};
  editor.Compact();
  EXPECT_EQ(StagesNow(), (Stages{{3, -1e-6}, {14, 0}, {12, 10}, {TwoPort, 1}, {0, 0}}));
  EXPECT_EQ(std::pair(session.TwoPortBlocks[4].file, session.TwoPortBlocks[4].table),
            std::pair(std::string("block.s2p"), block));
  EXPECT_EQ(session.TwoPortBlocks[5].table, nullptr);
}

}  // namespace
}  // namespace kalvex
