#include <gtest/gtest.h>

#include "design/design_values.h"
#include "model/options.h"
#include "support/fake_dialogs.h"

namespace kalvex {
namespace {

// Limits reset the values with their messages in order, and the boxes show
// the reset values' texts.
TEST(DesignValues, LimitsResetWithTheirMessagesInOrder) {
  const char* const zLow = "System impedance has been reset to the minimum allowed (1 ohm).";
  const char* const fLow = "Frequency has been reset to the minimum allowed (10kHz).";
  using Texts = std::vector<std::string>;
  // Typed system impedance and frequency; the values, messages and box texts after.
  for (const auto& [typed, values, messages, texts] : {
           std::tuple{Texts{"75", "-2M"}, std::pair{75.0, 2e6}, Texts{}, Texts{"75", "-2M"}},
           {{"0", "5k"}, {1, 10000}, {zLow, fLow}, {"1 ", " 10 k"}},
           {{"-300", "abc"}, {1, 10000}, {zLow, fLow}, {"1 ", " 10 k"}},
           {{"20k", "20G"}, {10000, 1e10},
            {"System impedance has been reset to the maximum allowed (10K).",
             "Frequency has been reset to the maximum allowed (10gHz)."},
            {"10 k", " 10 G"}}}) {
    Session session;
    InitialiseSession(session);
    testing::FakeDialogs dialogs;
    Texts boxes = typed;
    // A reset value is in its box before the message about it shows.
    Texts shownBeforeMessage = typed;
    LimitDesignValues(session, dialogs, boxes[0], boxes[1], [&](int box, const std::string& text) {
      if (dialogs.messages.size() == static_cast<std::size_t>(box)) shownBeforeMessage[box] = text;
    });
    EXPECT_EQ(std::pair(session.SystemZ, session.Frequency), values);
    EXPECT_EQ(dialogs.MessageTexts(), messages);
    EXPECT_EQ(boxes, texts);
    EXPECT_EQ(shownBeforeMessage, texts);
  }
}

TEST(DesignValues, VelocityFactorIsKeptWithinItsLimits) {
  const char* const low = "Velocity factor has been reset to the minimum allowed.";
  for (const auto& [text, stored, message] :
       {std::tuple{"0.66", 0.66, (const char*)nullptr}, {"-1", 0.0001, low}, {"abc", 0.0001, low},
        {"2", 1.0, "Velocity factor has been reset to the maximum allowed."}}) {
    Session session;
    InitialiseSession(session);
    testing::FakeDialogs dialogs;
    EXPECT_EQ(OpenOptions(session), " 1");
    ReturnFromOptions(session, dialogs, text);
    EXPECT_EQ(session.VelocityFactor, stored);
    EXPECT_EQ(dialogs.MessageTexts(), testing::FakeDialogs::Only(message));
    session.VelocityFactor = 0.00001;
    EXPECT_EQ(OpenOptions(session), " .0001");  // reopening shows the print style
  }
}

}  // namespace
}  // namespace kalvex
