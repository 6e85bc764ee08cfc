#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/cli_test.h"
#include "model/network_state.h"

namespace kalvex {
namespace {

using OutputTest = testing::CliTest;
using testing::Holds;

// A 3 kohm load at 10 GHz on 10 kohms: its L and Pi networks need capacitors
// of a few femtofarads, below what the Design page takes and what its
// formats write.
TEST_F(OutputTest, MatchSaysTheValuesItAppliesAndWritesEveryValue) {
  SaveNetwork(Empty, 0, 0);
  network.Frequency = 10e9;
  network.SystemZ = 10e3;
  network.Value[0] = {0, 3000, 0};
  Save();

  ASSERT_EQ(Run({"match", PathOf("net.SSF"), "--kinds", "L,PI", "--json"}), kExitOk) << err.str();
  const auto json = nlohmann::json::parse(out.str());
  int adjusted = 0;
  for (const auto& solution : json["solutions"]) {
    for (const auto& stage : solution["stages"]) {
      const int type = stage["type"];
      if (type == SeriesCapacitor || type == ShuntCapacitor) {
        EXPECT_GE(stage["values"][0].get<double>(), 1e-12) << "the Design page's smallest capacitor";
      }
    }
    adjusted += solution.value("adjusted", false) ? 1 : 0;
  }
  EXPECT_GE(adjusted, 4);

  ASSERT_EQ(Run({"match", PathOf("net.SSF"), "--kinds", "L,PI"}), kExitOk);
  EXPECT_TRUE(Holds(out.str(), "shunt capacitor 2.431e-15 F")) << out.str();
  EXPECT_FALSE(Holds(out.str(), "capacitor ;") || Holds(out.str(), "capacitor (")) << out.str();
}

// A load without resistance has no Bode-Fano bound: a line says so, no nan.
TEST_F(OutputTest, NoNumberThatIsNotANumber) {
  WriteFile("r0.RJX", "13M,0,-10\r\n14M,0,0\r\n15M,0,40\r\n");
  for (const bool json : {false, true}) {
    std::vector<std::string> words = {"band", PathOf("net.SSF"), "--load", PathOf("r0.RJX")};
    if (json) words.push_back("--json");
    EXPECT_EQ(Run(words), kExitOk) << err.str();
    EXPECT_FALSE(Holds(out.str(), "nan") || Holds(out.str(), "inf")) << out.str();
  }
  EXPECT_TRUE(Holds(out.str(), "\"gamma\":null"));

  // Far below its resonance the network reflects everything at an angle a
  // hair below zero: the status line shows it as 0.0.
  network.Frequency = 5e3;
  EXPECT_TRUE(Holds(MatchStatusText(network), "|Gamma| 1 at 0.0 deg")) << MatchStatusText(network);
}

}  // namespace
}  // namespace kalvex
