#include <gtest/gtest.h>

#include "analysis/network_listing.h"
#include "analysis/test_frequency.h"
#include "analysis/tuning.h"
#include "model/format.h"
#include "support/drawing_queries.h"
#include "support/fake_dialogs.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

class StripTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session.ArcsMode = 2;
    session.ChartZoom = 1;
  }
  Session session = testing::SessionOnLoad(50, 0, 14e6);
  DisplayList list;
};

TEST_F(StripTest, CellWidthsFollowTheParts) {
  session.Value[0][2] = 5;  // inductive load: shunt R and series L
  session = testing::WithStages(session, {{SeriesCapacitor, {0, 1e-10, 1000}}, {Empty, {}}, {ShuntResistor, {0, 50}},
                                          {SeriesLine, {0, 45, 14e6, 50}}, {SeriesResistor, {0, 50}}});
  DrawNetworkListing(session, list);
  // The load 400 + 2100 × 0.9, then series C 960, nothing for the empty
  // stage, two leads and the shunt R 1200, series line 1400, series R 1480.
  EXPECT_EQ(session.PartRightEdge, (decltype(session.PartRightEdge){2290, 3154, 3154, 4234, 5494, 6826}));
  EXPECT_TRUE(AnyPartShown(session));
  EXPECT_EQ(std::pair(PartAt(session, 690), PartAt(session, 691)), std::pair(-1, 0));  // the load's left edge
  // The colour key: a bar over every occupied stage's cell.
  const auto bars = testing::OfKind(list, DrawCommand::Kind::FillRect);
  EXPECT_EQ(std::count_if(bars.begin(), bars.end(), [](const DrawCommand& c) { return c.b.y == 75; }), 4);
}

TEST_F(StripTest, ValuesAreShownAtTheWorkingFrequency) {
  session = testing::WithStages(session, {{ShuntSeriesLC, {0, 1e-6, 100, 1e-9, 100}}, {SeriesCapacitor, {0, 1e-10, 1000}},
                                          {SeriesParallelLC, {0, 1e-6, 100, 1e-10, 100}}});
  session.SelectedStage = 1;
  DrawNetworkListing(session, list);
  const auto texts = testing::Texts(list);
  // The series LC: 87.965 ohms of the coil less 11.368 of the capacitor; the
  // capacitor its own -113.68; the parallel LC 1 / (1/87.965 − 1/113.68).
  for (const char* expected : {"1 uH", "1000 pF", "+76.596 ", "-113.68 ", "+388.84 ", "LOAD"}) {
    EXPECT_NE(std::find(texts.begin(), texts.end(), expected), texts.end()) << expected;
  }
  // The selected cell is framed in green.
  EXPECT_EQ(testing::OfKind(list, DrawCommand::Kind::OutlineRect).size(), 1u);
}

TEST_F(StripTest, SelectedPartsShowTheirValuesOnThePanel) {
  using Texts = std::vector<std::string>;  // the top caption and text, the bottom ones
  for (const auto& [type, values, texts] :
       {std::tuple{Empty, std::array{0.0, 0.0, 0.0, 0.0}, Texts{"R enter", "0 ", "X enter", "0 "}},
        {ShuntCapacitor, {0, 1e-10, 500, 0}, {"C enter", "100 pF", "Q enter", "500 "}},
        {SeriesInductor, {0, 2e-6, 80, 0}, {"L enter", "2 uH", "Q enter", "80 "}},
        {ShuntOpenStub, {0, 45, 14e6, 75}, {"Len enter", "45 ", "Z enter", "75 "}},
        {SeriesParallelLC, {0, 1e-6, 100, 1e-10}, {"L enter", "1 uH", "C enter", "100 pF"}},
        {ShuntResistor, {0, 33, 0, 0}, {"R enter", "33 ", "", ""}},
        {CoaxialCable, {0, 30, 50, 0.66}, {"Len enter", "30 ", "", ""}},
        {Transformer, {0, 49, 2e-5, 0}, {"N enter", "49 ", "", ""}}}) {
    session.ElementType[2] = static_cast<int16_t>(type);
    std::copy(values.begin(), values.end(), session.Value[2].begin());
    const TuningPanel panel = SelectPart(session, 2);
    EXPECT_EQ(session.SelectedStage, 2);
    EXPECT_EQ((Texts{panel.topCaption, panel.topText, panel.bottomCaption, panel.bottomText}), texts);
    EXPECT_EQ(panel.bottomRow, !texts[2].empty()) << type;
  }
}

class TuningTest : public StripTest {
 protected:
  void Select(int stage, int16_t type, std::array<double, 5> values) {
    session.ElementType[stage] = type;
    session.Value[stage] = {0, values[1], values[2], values[3], values[4]};
    SelectPart(session, stage);
  }
  testing::FakeDialogs dialogs;
};

// A zero entered empties the stage: its second to fourth values become 0,
// the first stays as the entry left it, the values after the fourth and the
// selection stay. On the load a resistance of 0 becomes 50 ohms.
TEST_F(TuningTest, ClearingAPartZeroesOnlyTheValuesItNames) {
  for (const bool top : {true, false}) {
    Select(2, ShuntSeriesLC, {0, 1e-6, 200, 100e-12, 1000});
    session.Value[2][5] = 7;
    const Entered entered = top ? EnterTopValue(session, dialogs, "0") : EnterBottomValue(session, "0");
    EXPECT_EQ(entered, Entered::PartCleared);
    EXPECT_EQ(std::tuple(session.ElementType[2], session.SelectedStage), std::tuple(Empty, 2));
    EXPECT_EQ(session.Value[2], (std::array<double, kSlotCount>{0, top ? 0 : 1e-6, 0, 0, 0, 7})) << top;
  }
  // A cable's fifth value is its own k2 and goes with it.
  Select(3, CoaxialCable, {0, 30, 50, 0.66, 1.38});
  session.Value[3][5] = 0.0227;
  EXPECT_EQ(EnterTopValue(session, dialogs, "0"), Entered::PartCleared);
  EXPECT_EQ(session.Value[3], (std::array<double, kSlotCount>{}));
  EXPECT_TRUE(dialogs.messages.empty());
  session.Value[0][2] = -30;
  SelectPart(session, 0);
  EXPECT_EQ(EnterTopValue(session, dialogs, "0"), Entered::LoadReset);
  EXPECT_EQ(std::pair(session.Value[0][1], session.Value[0][2]), std::pair(50.0, 0.0));
  EXPECT_EQ(dialogs.MessageTexts(), testing::FakeDialogs::Only("You have set the real value for the antenna to zero or less;\r\n"
                                                                "a default value of 50 ohms has been substituted for that value."));
  EXPECT_EQ(EnterBottomValue(session, "0"), Entered::Value);  // a load may have no X
}

TEST_F(TuningTest, FineStepsShrinkWithTheZoom) {
  SetFineSteps(session, true);
  session.ChartZoom = 8;
  Select(1, SeriesInductor, {0, 1e-6, 100});
  StepTopValue(session, "1u", StepDirection::Up, kSmallStep);
  EXPECT_NEAR(session.Value[1][1], 1e-6 * (1 + 0.0000125), 1e-17);
  // The Q steps by whole percents whatever the step size.
  StepBottomValue(session, "100", StepDirection::Down, kSmallStep);
  EXPECT_DOUBLE_EQ(session.Value[1][2], 100 / (1 + 0.01 / 8));
  SetFineSteps(session, false);  // arithmetic steps add the base, shrunk by the zoom
  Select(3, SeriesResistor, {0, 10});
  ChooseTopStepMode(session, true, "20");
  StepTopValue(session, "20", StepDirection::Down, kLargeStep);
  EXPECT_EQ(std::tuple(session.TopStepMode[3], session.TopStepBase[3], session.Value[3][1]),
            std::tuple(1, 20.0f, 20 - 2.0 / 8));
}

// The box shows the final text before any limit's message is shown.
TEST_F(TuningTest, FrequencyEntryKeepsWithinItsLimitsAndWritesTheBoxFirst) {
  for (const auto& [typed, frequency, text, message] :
       {std::tuple{"-2M", 2e6, " 2 M", (const char*)nullptr},
        {"1k", 5000.0, " 5 k", "Frequency has been reset to the minimum allowed (5kHz)."},
        {"20G", 1e10, " 10 G", "Frequency has been reset to the maximum allowed (10gHz)."}}) {
    dialogs.messages.clear();
    std::string box;
    std::size_t messagesWhenWritten = 0;
    EnterTestFrequency(session, dialogs, typed, [&](const std::string& written) {
      box = written;
      messagesWhenWritten = dialogs.messages.size();
    });
    EXPECT_EQ(std::tuple(box, messagesWhenWritten, session.Frequency), std::tuple(text, 0u, frequency));
    EXPECT_EQ(dialogs.MessageTexts(), testing::FakeDialogs::Only(message));
  }
}

TEST_F(TuningTest, FrequencyStepsRoundTripWithoutLimits) {
  SetFineSteps(session, false);
  EXPECT_EQ(StepTestFrequency(session, "10M", StepDirection::Down, kLargeStep), " 9.0909 M");
  EXPECT_DOUBLE_EQ(session.Frequency, 10e6 / 1.1);
  StepTestFrequency(session, "10M", StepDirection::Up, kLargeStep);
  EXPECT_DOUBLE_EQ(session.Frequency, 11e6);
  StepTestFrequency(session, "4k", StepDirection::Down, kLargeStep);
  EXPECT_LT(session.Frequency, 5000);  // stepping has no minimum
  session.ChartZoom = 4;  // zoomed in, the steps shrink with the zoom
  StepTestFrequency(session, "10M", StepDirection::Up, kLargeStep);
  EXPECT_DOUBLE_EQ(session.Frequency, 10e6 * (1 + 0.1 / 4));
}

}  // namespace
}  // namespace kalvex
