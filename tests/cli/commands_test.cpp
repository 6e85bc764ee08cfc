#include <gtest/gtest.h>

#include "analysis/tabulate.h"
#include "cli/cli_test.h"

namespace kalvex {
namespace {

using testing::SplitLines;

using CommandTest = testing::CliTest;

TEST_F(CommandTest, ImpedanceIsPrintedToTwelveDigits) {
  EXPECT_EQ(Run({"impedance", PathOf("net.SSF")}), kExitOk);
  EXPECT_EQ(out.str(), "50.1136821022 -113.682102208\n");
  EXPECT_EQ(err.str(), "");
  WriteFile("bad.SSF", "header\r\ndate\r\nFrequency: 9000\r\n");
  EXPECT_EQ(Run({"impedance", PathOf("bad.SSF")}), kExitFailed);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(err.str(), "We had a problem reading file " + PathOf("bad.SSF") +
                           "\n\nDefaults have been used but the network is empty.\n");
  EXPECT_EQ(Run({"--help"}), kExitOk);
  EXPECT_NE(out.str().find("impedance FILE [--freq HZ]"), std::string::npos);
}

// Without options the file's sweep is written in the data layout; options
// override the file, and the table matches the Tabulate page's.
TEST_F(CommandTest, SweepUsesTheFileSettingsUnlessOptionsOverrideThem) {
  EXPECT_EQ(Run({"sweep", PathOf("net.SSF")}), kExitOk);
  std::vector<std::string> lines = SplitLines(out.str());
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(std::tuple(lines[0], lines[1]), std::tuple("Kalvex data file", "Filename: -"));
  EXPECT_TRUE(lines[6].starts_with(" 13000000  50.") && lines[10].starts_with(" 15000000  50.")) << out.str();

  EXPECT_EQ(Run({"sweep", PathOf("net.SSF"), "--start", "1M", "--stop", "2M", "--points", "11", "--table"}), kExitOk);
  lines = SplitLines(out.str());
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(lines[0], kTabulateHeading);
  Session session = network;
  std::tie(session.LoadSource, session.SweepStart, session.SweepStop, session.SweepPoints) =
      std::tuple(1, 1e6, 2e6, 11);
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 1, lines.end()), TabulateSweep(session));
}

// Load data is swept point by point; a file with no point fails.
TEST_F(CommandTest, SweepOverLoadDataWritesItsPoints) {
  EXPECT_EQ(Run({"sweep", PathOf("net.SSF"), "--load", KALVEX_EXAMPLES_DIR "/dipole20m.RJX", "-o", PathOf("out.DAT")}),
            kExitOk);
  EXPECT_EQ(out.str(), "");
  const std::vector<std::string> lines = SplitLines(ReadFile("out.DAT"));
  ASSERT_EQ(lines.size(), 6u + 81u + 1u);
  EXPECT_EQ(lines[1], "Filename: " + PathOf("out.DAT"));
  EXPECT_TRUE(lines[86].starts_with(" 14600000 "));

  WriteFile("empty.RJX", "! nothing\r\n");
  EXPECT_EQ(Run({"sweep", PathOf("net.SSF"), "--load", PathOf("empty.RJX")}), kExitFailed);
  EXPECT_EQ(out.str(), "");
}

TEST_F(CommandTest, YieldAsJson) {
  const std::string net = PathOf("net.SSF");
  ASSERT_EQ(Run({"yield", net, "--samples", "200", "--vswr", "3", "--tolerance", "c=10", "--json"}), kExitOk);
  for (const char* key : {"{\"yield\":", "\"samples\":200", "\"nominal_worst_vswr\":", "\"corners_worst_vswr\":",
                          "\"envelope\":[{\"frequency\":", "\"vswr_95\":",
                          "\"parts\":[{\"stage\":1,\"part\":\"C\",\"tolerance\":10.0,\"low_vswr\":"}) {
    EXPECT_NE(out.str().find(key), std::string::npos) << out.str();
  }
  // A stage's own tolerance is over its kind's: an exact part has no share.
  ASSERT_EQ(Run({"yield", net, "--samples", "200", "--tolerance", "c=10,1=0", "--json"}), kExitOk);
  EXPECT_TRUE(testing::Holds(out.str(), "\"parts\":[]")) << out.str();
}

// A series capacitor on a matched load matches the better the larger it is:
// from 120 pF the nearest E3 values are 100 and 220 pF, and the search steps
// on through 470 pF and 1 nF to 2.2 nF. The parts list goes through the same
// writer as every command's output, to a file here.
TEST_F(CommandTest, SnappedNetworkWrittenAndItsPartsListed) {
  SaveNetwork(SeriesCapacitor, 120e-12, 1000);
  ASSERT_EQ(Run({"snap", PathOf("net.SSF"), "--stages", "1", "--series", "c=e3", "-o", PathOf("snapped.SSF")}),
            kExitOk);
  EXPECT_NE(out.str().find("Stage 1: series capacitor, 2200 pF, Q: 1 k (standard)"), std::string::npos) << out.str();
  ASSERT_EQ(Run({"bom", PathOf("snapped.SSF"), "-o", PathOf("parts.csv")}), kExitOk);
  EXPECT_EQ(ReadFile("parts.csv"), "stage,part,value,series,tolerance\n1,series capacitor,2.2 nF,E3,5 %\n");
  EXPECT_EQ(Run({"bom", PathOf("missing.SSF")}), kExitFailed);
}

}  // namespace
}  // namespace kalvex
