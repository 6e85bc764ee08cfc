#include <gtest/gtest.h>

#include "analysis/sweep_settings.h"
#include "support/fake_dialogs.h"

namespace kalvex {
namespace {

// The settings are made positive, limited with a message each, and the
// session leaves the load data for the entered load.
TEST(SweepSettings, ClampWithTheirMessages) {
  struct Case {
    double start, stop, points;
    double wantStart, wantStop;
    int16_t wantPoints;
    std::vector<std::string> messages;
  };
  for (const Case& c :
       {Case{-13e6, -15e6, 5, 13e6, 15e6, 5, {}}, Case{5000, 5010, 3, 5000, 5010, 3, {}},
        Case{4999, 5009, 2, 5000, 5010, 3,
             {"Start frequency has been reset to the minimum allowed (5 kHz)",
              "Stop frequency has been reset to the minimum allowed (5.01 kHz)"}},
        Case{2e10, 3e10, 2001, 1e10, 1e10, 2000,
             {"Start frequency has been reset to the maximum allowed (10 gHz)",
              "Stop frequency has been reset to the maximum allowed."}},
        Case{15e6, 13e6, 1e9, 15e6, 13e6, 2000, {}}, Case{1e6, 2e6, 2.5, 1e6, 2e6, 3, {}}}) {
    Session session;
    InitialiseSession(session);
    session.LoadSource = 2;
    testing::FakeDialogs dialogs;
    AcceptSweepSettings(session, dialogs, c.start, c.stop, c.points);
    EXPECT_EQ(session.SweepStart, c.wantStart);
    EXPECT_EQ(session.SweepStop, c.wantStop);
    EXPECT_EQ(session.SweepPoints, c.wantPoints);
    EXPECT_EQ(session.LoadSource, 1);
    EXPECT_EQ(dialogs.MessageTexts(), c.messages);
  }
}

}  // namespace
}  // namespace kalvex
