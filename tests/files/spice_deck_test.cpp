#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdio>

#include "files/spice_deck.h"
#include "matching/match.h"
#include "model/calculate.h"
#include "support/temp_dir.h"
#include "support/end_fed_network.h"
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

  // Returns the calculated input impedance, which `session`'s deck was checked against.
  std::complex<double> ExpectNgspiceAgrees(Session session) {
    testing::SweepOver(session, session.Frequency, session.Frequency, 1);
    CalculateNetwork(session, 0);
    const std::complex<double> expected(session.InputR, session.InputX);
    const auto simulated = RunNgspice(MakeSpiceDeck(session).text);
    EXPECT_TRUE(simulated.has_value());
    const double error = simulated ? std::abs(*simulated - expected) : 0;
    EXPECT_LT(error, 1e-6 * std::abs(expected)) << expected;
    return expected;
  }

 private:
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
  SCOPED_TRACE(GetParam().name);
  ExpectNgspiceAgrees(testing::NetworkAround(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(AllThirteen, SpiceDecks, ::testing::ValuesIn(testing::ThirteenParts()), testing::PartName);
INSTANTIATE_TEST_SUITE_P(CableAndTransformer, SpiceDecks, ::testing::ValuesIn(testing::FeedParts()), testing::PartName);

// An end-fed's transformer and cable with the L network that matches the
// load seen through them: the matched 50 ohms less what the parts' Q moves it.
TEST_F(SpiceDecks, NgspiceAgreesBeyondACableAndTransformer) {
  Session session = testing::EndFedNetwork();
  ApplyMatch(session, FindMatches(session, MatchRequest{{MatchKind::L}}).solutions.front());
  const std::complex<double> expected = ExpectNgspiceAgrees(session);
  EXPECT_LT(std::abs((expected - 50.0) / (expected + 50.0)), 0.02);
}

TEST(SpiceDeck, WritesPlainExponentsAndTheSweep) {
  Session session;
  InitialiseSession(session);
  session.ElementType[1] = SeriesInductor;
  session.Value[1] = {0, 1.2e-6, 0};
  const std::string deck = MakeSpiceDeck(session).text;
  EXPECT_NE(deck.find("L1 n1 n2 1.2e-06\n"), std::string::npos) << deck;
  EXPECT_NE(deck.find("I1 0 in AC 1\n"), std::string::npos);
  EXPECT_NE(deck.find(".ac lin 21 900000 1100000\n"), std::string::npos);
  EXPECT_TRUE(deck.ends_with(".end\n"));
}

}  // namespace
}  // namespace kalvex
