#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdio>

#include "files/spice_deck.h"
#include "support/temp_dir.h"
#include "support/networks.h"

namespace kalvex {
namespace {

// Decks run by ngspice: V(in) at the deck's one frequency, the working one, is
// the input impedance the calculation gives (ngspice prints seven significant
// digits).
class SpiceDecks : public testing::TempDirTest, public ::testing::WithParamInterface<testing::Part> {
 protected:
  void SetUp() override {
    if (std::system("ngspice --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "ngspice is not installed";
    TempDirTest::SetUp();
  }

  std::optional<std::complex<double>> RunNgspice(const std::string& deck) {
    WriteFile("deck.cir", deck);
    const std::string command = "ngspice -b '" + PathOf("deck.cir") + "' 2>&1";
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return std::nullopt;
    std::string output;
    std::optional<std::complex<double>> found;
    for (char line[4096]; std::fgets(line, sizeof line, pipe) != nullptr;) {
      int index = 0;
      double frequency = 0, re = 0, im = 0;
      if (std::sscanf(line, "%d %lf %lf %lf", &index, &frequency, &re, &im) == 4 && !found) found.emplace(re, im);
      output += line;
    }
    ::pclose(pipe);
    if (!found) ADD_FAILURE() << output;
    return found;
  }
};

// Each part type in its network.
TEST_P(SpiceDecks, NgspiceFindsTheCalculatedInputImpedance) {
  Session session = testing::NetworkAround(GetParam());
  testing::SweepOver(session, session.Frequency, session.Frequency, 1);
  const std::complex<double> expected = testing::InputAt(session, session.Frequency);
  const auto simulated = RunNgspice(MakeSpiceDeck(session).text);
  ASSERT_TRUE(simulated.has_value());
  EXPECT_LT(std::abs(*simulated - expected), 1e-6 * std::abs(expected)) << expected;
}

INSTANTIATE_TEST_SUITE_P(AllThirteen, SpiceDecks, ::testing::ValuesIn(testing::ThirteenParts()), testing::PartName);
INSTANTIATE_TEST_SUITE_P(CableAndTransformer, SpiceDecks, ::testing::ValuesIn(testing::FeedParts()), testing::PartName);

TEST(SpiceDeck, WritesPlainExponentsAndTheSweep) {
  const std::string deck =
      MakeSpiceDeck(testing::WithStages(testing::SessionOnLoad(50, 0, 1e6), {{SeriesInductor, {0, 1.2e-6, 0}}})).text;
  EXPECT_NE(deck.find("L1 n1 n2 1.2e-06\n"), std::string::npos) << deck;
  EXPECT_NE(deck.find("I1 0 in AC 1\n"), std::string::npos);
  EXPECT_NE(deck.find(".ac lin 21 900000 1100000\n"), std::string::npos);
  EXPECT_TRUE(deck.ends_with(".end\n"));
}

}  // namespace
}  // namespace kalvex
