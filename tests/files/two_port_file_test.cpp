#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>

#include "analysis/sweep.h"
#include "design/two_port_stage.h"
#include "files/network_file.h"
#include "files/network_two_port_text.h"
#include "files/two_port_file.h"
#include "model/calculate.h"
#include "support/fake_dialogs.h"
#include "support/session_setup.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;
using testing::InputAt;

// The stages on a load of 12 + j30 ohms at 14 MHz, swept over 5..30 MHz in 26 points.
Session Network(const std::vector<testing::StagePart>& stages) {
  Session session = testing::WithStages(testing::SessionOnLoad(12, 30, 14e6), stages);
  testing::SweepOver(session, 5e6, 30e6, 26);
  return session;
}

class TwoPortFileTest : public testing::TempDirTest {
 protected:
  // The network's two-port file as the sweep command writes it, in `name`.
  std::string WriteTwoPortOf(Session network, const std::string& name) {
    RunSweepPoints(network, SweepUse::Table);
    WriteFile(name, NetworkTwoPortText(network, "now"));
    return PathOf(name);
  }

  // `network`'s own load behind a block read from `file`.
  Session BlockOn(const Session& network, const std::string& file, BlockPlacement placement,
                  bool port2Shorted = false) {
    Session session = Network({});
    session.Value[0] = network.Value[0];
    EXPECT_EQ(PlaceTwoPortBlock(session, {1, file, placement, false, port2Shorted}), "");
    return session;
  }
};

// The written file: its option line at the system impedance and one line of
// nine numbers a sweep frequency, but none where a block's file stops short.
TEST_F(TwoPortFileTest, WrittenFileHoldsEveryFrequencyItsBlocksCover) {
  Session narrow = Network({{SeriesCapacitor, {0, 100e-12, 0}}});
  testing::SweepOver(narrow, 10e6, 20e6, 11);
  Session network = Network({{SeriesInductor, {0, 1e-6, 0}}});
  network.SystemZ = 75;
  ASSERT_EQ(PlaceTwoPortBlock(network, {2, WriteTwoPortOf(narrow, "c.s2p")}), "");
  const auto rows = [](Session session) {
    RunSweepPoints(session, SweepUse::Table);
    const std::string text = NetworkTwoPortText(session, "now");
    EXPECT_NE(text.find("\n# Hz S RI R 75\n"), std::string::npos);
    std::vector<std::size_t> words;
    for (std::size_t start = text.find("R 75\n") + 5; start < text.size(); start = text.find('\n', start) + 1) {
      const std::string row = text.substr(start, text.find('\n', start) - start);
      words.push_back(std::count(row.begin(), row.end(), ' ') + 1);
    }
    return words;
  };
  EXPECT_EQ(rows(network), std::vector<std::size_t>(11, 9));  // 10..20 MHz of the sweep's 5..30
  network.ElementType[2] = Empty;
  EXPECT_EQ(rows(network), std::vector<std::size_t>(26, 9));
}

// The file Kalvex writes for a network, read back as a block, is the network:
// an L network's in cascade; an ideal capacitor's between the ports is a series
// capacitor, and at port 1 with port 2 shorted a shunt one. Between the file's
// points the block follows too, to the interpolation's accuracy.
TEST_F(TwoPortFileTest, NetworksOwnFilePlacedInSeriesCascadeOrShuntIsThatNetwork) {
  const Session lNetwork = Network({{SeriesInductor, {0, 1.2e-6, 0}}, {ShuntCapacitor, {0, 180e-12, 0}}});
  const std::string lFile = WriteTwoPortOf(lNetwork, "l.s2p");
  const std::string file = WriteTwoPortOf(Network({{SeriesCapacitor, {0, 100e-12, 0}}}), "c.s2p");
  for (const auto& [network, name, placement, shorted] :
       {std::tuple{lNetwork, lFile, BlockPlacement::Cascade, false},
        {Network({{SeriesCapacitor, {0, 100e-12, 0}}}), file, BlockPlacement::Series, false},
        {Network({{ShuntCapacitor, {0, 100e-12, 0}}}), file, BlockPlacement::Shunt, true}}) {
    const Session block = BlockOn(network, name, placement, shorted);
    for (int k = 0; k < 26; ++k) {
      const double f = 5e6 + k * 1e6;
      const Complex expected = InputAt(network, f);
      EXPECT_LE(std::abs(InputAt(block, f) - expected), 1e-9 * std::abs(expected)) << name << " at " << f;
    }
    const Complex between = InputAt(block, 14.5e6);
    EXPECT_LE(std::abs(between - InputAt(network, 14.5e6)), 1e-2 * std::abs(between)) << name;
  }
  // With port 2 open nothing flows through the capacitor: the line is as it was.
  const Session open = BlockOn(Network({}), file, BlockPlacement::Shunt, false);
  EXPECT_LE(std::abs(InputAt(open, 14e6) - Complex(12, 30)), 1e-6);
}

// Hand-worked blocks, each read in another of the file's forms:
// - a 25 ohm series resistor between port impedances of 50 and 75 ohms:
//   S11 = (Z + z2 - z1) / (Z + z1 + z2) = 1/3, S22 = 0 and
//   S21 = S12 = 2 sqrt(z1 z2) / (Z + z1 + z2) = 0.816496580927726;
// - a 100 ohm shunt resistor as Z parameters in ohms, every entry 100;
// - a 100 ohm series resistor as Y parameters normalised to 50 ohms,
//   0.5 and -0.5;
// - a 50 ohm series resistor at 50 ohms in dB: |S11| = 1/3, |S21| = 2/3.
TEST_F(TwoPortFileTest, FormatsReferencesAndDataOrdersGiveTheHandWorkedBlock) {
  const Complex load(12, 30);
  struct Case {
    const char* name;
    const char* text;
    Complex expected;
  };
  const Case cases[] = {
      {"version 2, port impedances, 12_21, split records",
       "! series 25 ohm\n[Version] 2.0\n# MHz S RI\n[Number of Ports] 2\n[Two-Port Data Order] 12_21\n"
       "[Reference] 50\n 75\n[Number of Frequencies] 2\n[Network Data]\n"
       "1 0.333333333333333333 0 0.816496580927726 0\n 0.816496580927726 0 0 0\n"
       "100 0.333333333333333333 0 0.816496580927726 0 0.816496580927726 0 0 0\n[End]\n",
       load + 25.0},
      {"version 2, Z in ohms, lower half", "[Version] 2.0\n# kHz Z RI R 50\n[Number of Ports] 2\n"
       "[Matrix Format] Lower\n[Network Data]\n1000 100 0 100 0 100 0\n100000 100 0 100 0 100 0\n[End]\n",
       load * 100.0 / (load + 100.0)},
      {"version 1, normalised Y, MA, comments", "! series 100 ohm\n# Hz Y MA R 50 ! option line\n"
       "1e6 0.5 0 0.5 180 0.5 180 0.5 0\n1e8 0.5 0 0.5 180 0.5 180 0.5 0 ! last\n", load + 100.0},
      {"version 1, dB, GHz by default, noise data after", "# S DB R 50\n"
       "0.001 -9.5424250943932487 0 -3.5218251811136247 0 -3.5218251811136247 0 -9.5424250943932487 0\n"
       "0.1 -9.5424250943932487 0 -3.5218251811136247 0 -3.5218251811136247 0 -9.5424250943932487 0\n"
       "0.01 1.2 0.5 40 20\n",
       load + 50.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    WriteFile("block.s2p", c.text);
    const Session block = BlockOn(Network({}), PathOf("block.s2p"), BlockPlacement::Cascade);
    for (const double f : {1e6, 30e6, 100e6}) {
      EXPECT_LE(std::abs(InputAt(block, f) - c.expected), 1e-9 * std::abs(c.expected)) << f;
    }
  }
}

// The data orders differ where S12 and S21 do: an amplifier's gain is its
// S21 in either order.
TEST(TwoPortReadingTest, DataOrdersPutEachTransmissionInItsPlace) {
  for (const char* text : {"# MHz S RI R 50\n1 0 0 4 0 0.01 0 0 0\n",
                           "[Version] 2.0\n# MHz S RI R 50\n[Two-Port Data Order] 12_21\n[Network Data]\n"
                           "1 0 0 0.01 0 4 0 0 0\n"}) {
    const TwoPortReading reading = ReadTwoPortText("amplifier.s2p", text);
    ASSERT_TRUE(reading.table) << reading.problem;
    EXPECT_EQ(std::pair(reading.table->At(1e6)->S21(), reading.table->At(1e6)->S12()),
              std::pair(Complex(4, 0), Complex(0.01, 0)));
  }
}

TEST_F(TwoPortFileTest, FilesThatCannotBeABlockAreRefusedNamingWhy) {
  const std::pair<const char*, const char*> cases[] = {
      {"# MHz S RI R 50\n1 0 0 1 0 1 0 0 0\n2 0 0 nan 0 1 0 0 0\n", "line 3 holds nan, which is not a finite number"},
      {"# MHz S RI R 50\n1 0 0 1 0 1 0 0 0\n2 0 0 1e999 0 1 0 0 0\n", "line 3 holds"},
      {"[Version] 2.0\n[Number of Ports] 3\n", "is a 3-port file"},
      {"# MHz S RI R 50\n1 0 0 1 0 1 0\n", "last data record is incomplete"},
      {"[Version] 2.0\n# MHz S RI\n[Network Data]\n2 0 0 1 0 1 0 0 0\n1 0 0 1 0 1 0 0 0\n", "lower frequency"},
      {"[Version] 2.0\n[Reference] 50 75 100\n", "not a positive number"},
      {"[Version] 2.0\n[Reference] 50\n[Network Data]\n", "fewer impedances"},
      {"# MHz Q RI\n", "option line is not understood"},
      {"! nothing\n", "holds no data points"},
      {"# MHz Z RI R 50\n1 -1 0 0 0 0 0 -1 0\n", "no S parameters"},  // Z + z0 singular
      {"# MHz S RI R 50\n-1 0 0 1 0 1 0 0 0\n", "negative frequency"},
      {"[Version] 2.0\n[Mixed-Mode Order] D2,1 C2,1\n", "mixed-mode"},
      {"\x1b[2J# MHz S RI R 50\n", "which is not a finite number"},
  };
  for (const auto& [text, why] : cases) {
    const TwoPortReading reading = ReadTwoPortText("bad\x07.s2p", text);
    EXPECT_EQ(reading.table, nullptr) << text;
    EXPECT_NE(reading.problem.find("bad .s2p cannot be a two-port block: "), std::string::npos) << reading.problem;
    EXPECT_NE(reading.problem.find(why), std::string::npos) << reading.problem;
    EXPECT_EQ(reading.problem.find('\x1b'), std::string::npos);
  }
}

// The network file names the block relative to its own folder; a network
// whose block file has gone reads with that stage empty and a message.
TEST_F(TwoPortFileTest, NetworkFileKeepsTheBlockAndSurvivesItsLoss) {
  std::filesystem::create_directories(PathOf("parts"));
  const std::string file = WriteTwoPortOf(Network({{SeriesCapacitor, {0, 100e-12, 0}}}), "parts/c.s2p");
  Session network = Network({{SeriesInductor, {0, 1e-6, 0}}, {ShuntCapacitor, {0, 100e-12, 0}}});
  ASSERT_EQ(PlaceTwoPortBlock(network, {3, file, BlockPlacement::Shunt, true, false}), "");
  testing::FakeDialogs dialogs;
  ASSERT_TRUE(WriteNetworkFile(network, dialogs, PathOf("net.SSF")));
  EXPECT_NE(ReadFile("net.SSF").find(" \r\n   Two-port file: parts/c.s2p\r\n\r\nElement type for stage 4:"), std::string::npos);

  Session read = Network({});
  ASSERT_TRUE(ReadNetworkFile(read, dialogs, PathOf("net.SSF")));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(read.ElementType[3], TwoPort);
  EXPECT_EQ(read.Value[3], network.Value[3]);
  EXPECT_EQ(InputAt(read, 14e6), InputAt(network, 14e6));

  std::filesystem::remove(file);
  ASSERT_TRUE(ReadNetworkFile(read, dialogs, PathOf("net.SSF")));
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].text.find("c.s2p"), std::string::npos) << dialogs.messages[0].text;
  EXPECT_NE(dialogs.messages[0].text.find("Stage 3 has been left empty."), std::string::npos);
  EXPECT_EQ(read.ElementType[3], Empty);
  EXPECT_EQ(read.ElementType[2], ShuntCapacitor);
  EXPECT_EQ(read.SweepPoints, 26);
}

}  // namespace
}  // namespace kalvex
