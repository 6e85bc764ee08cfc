#include <gtest/gtest.h>

#include "design/feed_part_limits.h"
#include "design/network_editor.h"

namespace kalvex {
namespace {

// A cable's and a transformer's entries are taken as magnitudes and kept
// within their ranges, each value moved to a limit with its own message;
// Accept's rules give the same values without the messages.
TEST(FeedPartLimits, KeepEachValueWithinItsRangeAndSaySo) {
  struct Case {
    int16_t type;
    StageValues entered, stored;
    std::vector<std::string> messages;
  };
  const Case cases[] = {
      {CoaxialCable, {0, 30, 50, 0.66, 1.38, 0.0227}, {0, 30, 50, 0.66, 1.38, 0.0227}, {}},
      {CoaxialCable, {0, -12, -75, -0.8, -2, -0.5}, {0, 12, 75, 0.8, 2, 0.5}, {}},
      {CoaxialCable, {0, 0, 0.5, 0.05, 0, 0}, {0, 0.01, 1, 0.1, 0, 0},
       {"Cable length has been reset to the minimum allowed (1 cm).",
        "Cable impedance has been reset to the minimum allowed (1 ohm).",
        "Velocity factor has been reset to the minimum allowed (0.1)."}},
      {CoaxialCable, {0, 2000, 20000, 1.2, 1, 1}, {0, 1000, 10000, 1, 1, 1},
       {"Cable length has been reset to the maximum allowed (1 km).",
        "Cable impedance has been reset to the maximum allowed (10K).",
        "Velocity factor has been reset to the maximum allowed (1)."}},
      {CoaxialCable, {0, 0.01, 1, 0.1, 0, 0}, {0, 0.01, 1, 0.1, 0, 0}, {}},  // the limits themselves
      {CoaxialCable, {0, 1000, 10000, 1, 0, 0}, {0, 1000, 10000, 1, 0, 0}, {}},
      {Transformer, {0, 49, 10e-6, -1e-7, 9}, {0, 49, 10e-6, 1e-7, 0}, {}},  // a fourth value is none of its
      {Transformer, {0, 0, 0, 0}, {0, 0.01}, {"Transformer ratio has been reset to the minimum allowed (0.01:1)."}},
      {Transformer, {0, -250}, {0, 100}, {"Transformer ratio has been reset to the maximum allowed (100:1)."}},
  };
  Session session;
  for (const Case& c : cases) {
    std::vector<std::string> messages;
    EXPECT_EQ(FeedPartValues(c.type, c.entered, messages), c.stored) << c.type << " " << c.entered[1];
    EXPECT_EQ(messages, c.messages);
    EXPECT_EQ(AcceptedValues(session, c.type, c.entered), c.stored);
  }
}

}  // namespace
}  // namespace kalvex
