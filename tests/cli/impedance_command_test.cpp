#include <gtest/gtest.h>

#include <sstream>

#include "cli.h"
#include "files/network_file.h"
#include "support/fake_dialogs.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

class ImpedanceCommandTest : public testing::TempDirTest {
 protected:
  void SetUp() override {
    TempDirTest::SetUp();
    InitialiseSession(network);
    network.Frequency = 14e6;
    network.ElementType[1] = SeriesCapacitor;
    network.Value[1][1] = 100e-12;
    network.Value[1][2] = 1000;
    network.QCircle = 2;
    network.VSWRCircle = 2;
    network.SweepStart = 1e6;
    network.SweepStop = 2e6;
    network.SweepPoints = 10;
    testing::FakeDialogs dialogs;
    WriteNetworkFile(network, dialogs, PathOf("net"));
  }

  int Run(const std::vector<std::string>& args) {
    out.str("");
    err.str("");
    return RunCli(args, out, err);
  }

  Session network;
  std::ostringstream out;
  std::ostringstream err;
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
