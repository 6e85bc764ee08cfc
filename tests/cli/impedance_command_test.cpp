#include <gtest/gtest.h>

#include "cli/cli_test.h"

namespace kalvex {
namespace {

class ImpedanceCommandTest : public testing::CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    SaveNetwork(SeriesCapacitor, 100e-12, 1000);
  }
};

TEST_F(ImpedanceCommandTest, PrintsResistanceAndReactanceToTwelveDigits) {
  EXPECT_EQ(Run({"impedance", PathOf("net.SSF")}), kExitOk);
  EXPECT_EQ(out.str(), "50.1136821022 -113.682102208\n");
  EXPECT_EQ(err.str(), "");
}

TEST_F(ImpedanceCommandTest, FrequencyOptionOverridesTheFile) {
  EXPECT_EQ(Run({"impedance", PathOf("net.SSF"), "--freq", "28e6"}), kExitOk);
  EXPECT_EQ(out.str(), "50.0568410511 -56.8410511042\n");
}

TEST_F(ImpedanceCommandTest, ReaderFailureGoesToStandardError) {
  WriteFile("bad.SSF", "header\r\ndate\r\nFrequency: 9000\r\n");
  EXPECT_EQ(Run({"impedance", PathOf("bad.SSF")}), kExitFailed);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(err.str(), "We had a problem reading file " + PathOf("bad.SSF") +
                           "\n\nDefaults have been used but the network is empty.\n");
}

TEST_F(ImpedanceCommandTest, UsageErrorsExitWithTwo) {
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"impedance"},
                                             {"impedance", "a", "b"},
                                             {"impedance", PathOf("net.SSF"), "--freq"},
                                             {"impedance", PathOf("net.SSF"), "--freq", "abc"},
                                             {"impedance", PathOf("net.SSF"), "--freq", "-5"},
                                             {"impedance", PathOf("net.SSF"), "--points", "5"},
                                             {"frobnicate"},
                                             {}}) {
    EXPECT_EQ(Run(args), kExitUsage);
    EXPECT_NE(err.str().find("usage: kalvex-cli"), std::string::npos);
    EXPECT_EQ(out.str(), "");
  }
}

TEST_F(ImpedanceCommandTest, HelpListsTheCommands) {
  EXPECT_EQ(Run({"--help"}), kExitOk);
  EXPECT_NE(out.str().find("impedance FILE [--freq HZ]"), std::string::npos);
}

}  // namespace
}  // namespace kalvex
