#include <gtest/gtest.h>

#include "cli/cli_test.h"

namespace kalvex {
namespace {

class BuildableCommandsTest : public testing::CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    SaveNetwork(SeriesCapacitor, 100e-12, 1000);
  }
};

TEST_F(BuildableCommandsTest, YieldAsJsonAndUsageErrors) {
  const std::string net = PathOf("net.SSF");
  ASSERT_EQ(Run({"yield", net, "--samples", "200", "--vswr", "3", "--tolerance", "c=10", "--json"}), kExitOk);
  for (const char* key : {"{\"yield\":", "\"samples\":200", "\"nominal_worst_vswr\":", "\"corners_worst_vswr\":",
                          "\"envelope\":[{\"frequency\":", "\"vswr_95\":",
                          "\"parts\":[{\"stage\":1,\"part\":\"C\",\"tolerance\":10.0,\"low_vswr\":"}) {
    EXPECT_NE(out.str().find(key), std::string::npos) << out.str();
  }
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"yield"}, {"yield", net, "--tolerance", "Q=5"}, {"yield", net, "--tolerance", "C=100"},
           {"yield", net, "--tolerance", "C5"}, {"yield", net, "--distribution", "flat"},
           {"yield", net, "--samples", "0"}, {"yield", net, "--samples", "2.5"},
           {"yield", net, "--seed", "-1"}, {"yield", net, "--vswr", "0.5"}, {"bom"}, {"bom", net, "--json"},
           {"snap", net}, {"snap", net, "--stages", "2"}, {"snap", net, "--stages", "1", "--series", "C=E25"},
           {"snap", net, "--stages", "1", "--series", "LINE=E12"}}) {
    EXPECT_EQ(Run(words), kExitUsage) << words.back();
    EXPECT_EQ(out.str(), "");
  }
}

// A series capacitor on a matched load matches the better the larger it is:
// from 120 pF the nearest E3 values are 100 and 220 pF, and the search steps
// on through 470 pF and 1 nF to 2.2 nF.
TEST_F(BuildableCommandsTest, SnappedNetworkWritten) {
  SaveNetwork(SeriesCapacitor, 120e-12, 1000);
  ASSERT_EQ(Run({"snap", PathOf("net.SSF"), "--stages", "1", "--series", "c=e3", "-o", PathOf("snapped.SSF")}),
            kExitOk);
  EXPECT_NE(out.str().find("Stage 1: series capacitor, 2200 pF, Q: 1 k (standard)"), std::string::npos) << out.str();
  ASSERT_EQ(Run({"bom", PathOf("snapped.SSF")}), kExitOk);
  EXPECT_EQ(out.str(), "stage,part,value,series,tolerance\n1,series capacitor,2.2 nF,E3,5 %\n");
}

TEST_F(BuildableCommandsTest, PartsListToAFile) {
  ASSERT_EQ(Run({"bom", PathOf("net.SSF"), "-o", PathOf("parts.csv")}), kExitOk);
  EXPECT_EQ(ReadFile("parts.csv"), "stage,part,value,series,tolerance\n1,series capacitor,100 pF,E3,5 %\n");
  EXPECT_EQ(Run({"bom", PathOf("missing.SSF")}), kExitFailed);
}

}  // namespace
}  // namespace kalvex
