#include <gtest/gtest.h>

#include "analysis/sweep_settings.h"
#include "support/fake_dialogs.h"

namespace kalvex {
namespace {

struct SettingsCase {
  double start, stop, points;
  double wantStart, wantStop;
  int16_t wantPoints;
  std::vector<std::string> messages;
};

class SweepSettingsLimits : public ::testing::TestWithParam<SettingsCase> {};

TEST_P(SweepSettingsLimits, ClampWithTheirMessages) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 2;
  testing::FakeDialogs dialogs;
  const SettingsCase& c = GetParam();
  AcceptSweepSettings(session, dialogs, c.start, c.stop, c.points);
  EXPECT_EQ(session.SweepStart, c.wantStart);
  EXPECT_EQ(session.SweepStop, c.wantStop);
  EXPECT_EQ(session.SweepPoints, c.wantPoints);
  EXPECT_EQ(session.LoadSource, 1);
  EXPECT_EQ(dialogs.MessageTexts(), c.messages);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, SweepSettingsLimits,
    ::testing::Values(
        SettingsCase{13e6, 15e6, 101, 13e6, 15e6, 101, {}},
        SettingsCase{-13e6, -15e6, 5, 13e6, 15e6, 5, {}},  // made positive first
        SettingsCase{5000, 5010, 3, 5000, 5010, 3, {}},    // the limits themselves pass
        SettingsCase{4999, 5009, 2, 5000, 5010, 3,
                     {"Start frequency has been reset to the minimum allowed (5 kHz)",
                      "Stop frequency has been reset to the minimum allowed (5.01 kHz)"}},
        SettingsCase{2e10, 3e10, 2001, 1e10, 1e10, 2000,
                     {"Start frequency has been reset to the maximum allowed (10 gHz)",
                      "Stop frequency has been reset to the maximum allowed."}},
        SettingsCase{15e6, 13e6, 1e9, 15e6, 13e6, 2000, {}},  // downward sweeps are kept
        SettingsCase{1e6, 2e6, 2.5, 1e6, 2e6, 3, {}}));

}  // namespace
}  // namespace kalvex
