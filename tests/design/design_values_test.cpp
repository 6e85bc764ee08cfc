#include <gtest/gtest.h>

#include "design/design_values.h"
#include "model/options.h"
#include "support/fake_dialogs.h"

namespace kalvex {
namespace {

struct LimitCase {
  const char* systemZ;
  const char* frequency;
  double wantZ, wantF;
  std::vector<std::string> messages;
  const char* zText = nullptr;  // the boxes' texts after a reset; nullptr: as typed
  const char* fText = nullptr;
};

class DesignLimits : public ::testing::TestWithParam<LimitCase> {};

TEST_P(DesignLimits, ResetWithTheirMessagesInOrder) {
  Session session;
  InitialiseSession(session);
  testing::FakeDialogs dialogs;
  std::string z = GetParam().systemZ, f = GetParam().frequency;
  LimitDesignValues(session, dialogs, z, f);
  EXPECT_EQ(session.SystemZ, GetParam().wantZ);
  EXPECT_EQ(session.Frequency, GetParam().wantF);
  EXPECT_EQ(dialogs.MessageTexts(), GetParam().messages);
  EXPECT_EQ(z, GetParam().zText ? GetParam().zText : GetParam().systemZ);
  EXPECT_EQ(f, GetParam().fText ? GetParam().fText : GetParam().frequency);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, DesignLimits,
    ::testing::Values(
        LimitCase{"50", "14M", 50, 14e6, {}}, LimitCase{"75", "-2M", 75, 2e6, {}},
        LimitCase{"0", "5k", 1, 10000,
                  {"System impedance has been reset to the minimum allowed (1 ohm).",
                   "Frequency has been reset to the minimum allowed (10kHz)."},
                  "1 ", " 10 k"},
        LimitCase{"-300", "abc", 1, 10000,
                  {"System impedance has been reset to the minimum allowed (1 ohm).",
                   "Frequency has been reset to the minimum allowed (10kHz)."},
                  "1 ", " 10 k"},
        LimitCase{"20k", "20G", 10000, 1e10,
                  {"System impedance has been reset to the maximum allowed (10K).",
                   "Frequency has been reset to the maximum allowed (10gHz)."},
                  "10 k", " 10 G"}));

TEST(DesignValues, OpeningFillsMissingValues) {
  Session session;
  InitialiseSession(session);
  session.SystemZ = 0;
  session.Frequency = -5;
  session.DefaultCapacitorQ = 0;
  session.DefaultInductorQ = 0;
  session.FileName = "tuner.SSF";
  const DesignValueTexts texts = PrepareDesignValues(session);
  EXPECT_EQ(texts.systemZ, "50");
  EXPECT_EQ(texts.frequency, "1 M");
  EXPECT_EQ(texts.capacitorQ, "1 k");
  EXPECT_EQ(texts.inductorQ, "100 ");
  EXPECT_EQ(session.DefaultInductorQ, 100);
  EXPECT_EQ(session.LoadSource, 1);
  EXPECT_EQ(session.VelocityFactor, 1);
  EXPECT_EQ(DesignCaption(session), "Kalvex 2.12 - Design tuner.SSF");

  session.SystemZ = 75;
  session.Frequency = 14.2e6;
  EXPECT_EQ(PrepareDesignValues(session).systemZ, "75 ");
  EXPECT_EQ(PrepareDesignValues(session).frequency, " 14.2 M");
}

struct VelocityCase {
  const char* text;
  double stored;
  const char* message;  // nullptr: none
};

class VelocityFactor : public ::testing::TestWithParam<VelocityCase> {};

TEST_P(VelocityFactor, IsKeptWithinItsLimits) {
  Session session;
  InitialiseSession(session);
  testing::FakeDialogs dialogs;
  EXPECT_EQ(OpenOptions(session), " 1");
  ReturnFromOptions(session, dialogs, GetParam().text);
  EXPECT_EQ(session.VelocityFactor, GetParam().stored);
  EXPECT_EQ(dialogs.MessageTexts(), testing::FakeDialogs::Only(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    Entries, VelocityFactor,
    ::testing::Values(VelocityCase{"0.66", 0.66, nullptr},
                      VelocityCase{"-1", 0.0001, "Velocity factor has been reset to the minimum allowed."},
                      VelocityCase{"abc", 0.0001, "Velocity factor has been reset to the minimum allowed."},
                      VelocityCase{"2", 1, "Velocity factor has been reset to the maximum allowed."}));

TEST(VelocityFactor, ReopeningShowsThePrintStyle) {
  Session session;
  InitialiseSession(session);
  session.VelocityFactor = 0.66;
  EXPECT_EQ(OpenOptions(session), " .66");
  session.VelocityFactor = 0.00001;
  EXPECT_EQ(OpenOptions(session), " .0001");
}

}  // namespace
}  // namespace kalvex
