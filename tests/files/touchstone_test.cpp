#include <gtest/gtest.h>

#include <cmath>
#include <complex>

#include "analysis/sweep.h"
#include "files/load_data_file.h"
#include "files/touchstone.h"
#include "support/fake_dialogs.h"
#include "support/networks.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;

// Reads `contents` as the load-data file `file` into `session`.
class TouchstoneTest : public testing::TempDirTest {
 protected:
  void Load(const std::string& file, const std::string& contents) {
    WriteFile(file, contents);
    InitialiseSession(session);
    dialogs = testing::FakeDialogs();
    ParseLoadFile(session, dialogs, PathOf(file));
  }
  Session session;
  testing::FakeDialogs dialogs;
};

// Γ = 0.2 + j0.4 at 50 ohms is 50 (1 + Γ) / (1 − Γ) = 50 + j50 ohms; in
// magnitude and angle 0.4472135955 at 63.4349488229 degrees, -6.98970004336 dB.
// The loads (R + jX in ohms) are worked out by hand; the file's type says
// Touchstone.
TEST_F(TouchstoneTest, FilesGiveTheLoadsInOhms) {
  struct Case {
    const char* file;
    const char* contents;
    std::vector<std::pair<double, Complex>> loads;  // frequency, load
    const char* message;                            // nullptr: none
  };
  for (const Case& c : {
           Case{"ant.s1p", "# MHz S RI R 50\n14 0.2 0.4\n", {{14e6, {50, 50}}}, nullptr},
           Case{"ant.S1P", "! defaults GHz S MA R 50\n#\n1.5 0.4472135955 63.4349488229\n", {{1.5e9, {50, 50}}}, nullptr},
           Case{"ant.s1p", "   # kHz S DB R 50 ! option line\n14000\t-6.98970004336\t63.4349488229\n",
                {{14e6, {50, 50}}}, nullptr},
           Case{"ant.s1p", "# Hz S RI R 75\n2000 0 0\n1000 0.2 0.4\n", {{1000, {75, 75}}, {2000, {75, 0}}}, nullptr},
           Case{"ant.s1p", "# MHz Z RI R 50\n7 0.5 -1\n", {{7e6, {25, -50}}}, nullptr},  // normalised in v1
           Case{"ant.s1p", "# MHz Y RI R 50\n7 1 1\n", {{7e6, {25, -25}}}, nullptr},
           Case{"ant.s1p", "[Version] 2.0\n# MHz Z RI R 50\n[Number of Ports] 1\n[Network Data]\n7 25 -50\n[End]\n",
                {{7e6, {25, -50}}}, nullptr},  // in ohms in v2
           Case{"ant.s1p", "# MHz S RI R 50\n14 0.2 0.4\n15 oops 0\n", {{14e6, {50, 50}}}, "Parser error"},
           Case{"ant.s1p", "# MHz Q RI R 50\n14 0.2 0.4\n", {}, "option line"},
           Case{"amp.s2p", "# MHz S RI R 50\n", {}, "2-port"},
           Case{"amp.s1p", "# MHz S RI R 50\n14 0.1 0 0.9 0 0.9 0 0.1 0\n", {}, "one-port"},
           Case{"empty.s1p", "! nothing here\n# MHz S RI R 50\n", {}, "no data"}}) {
    Load(c.file, c.contents);
    ASSERT_EQ(dialogs.messages.size(), c.message == nullptr ? 0u : 1u) << c.contents;
    EXPECT_TRUE(c.message == nullptr || dialogs.messages[0].text.find(c.message) != std::string::npos);
    ASSERT_EQ(session.SweepPoints, std::ssize(c.loads)) << c.contents;
    for (std::size_t k = 0; k < c.loads.size(); ++k) {
      const auto& [frequency, load] = c.loads[k];
      EXPECT_DOUBLE_EQ(session.LoadFreq[k + 1], frequency) << c.contents;
      EXPECT_NEAR(session.LoadR[k + 1], load.real(), 1e-9 * std::abs(load)) << c.contents;
      EXPECT_NEAR(session.LoadX[k + 1], load.imag(), 1e-9 * std::abs(load)) << c.contents;
    }
  }
}

// What the sweep writes as Touchstone reads back to the same impedances.
TEST_F(TouchstoneTest, SweepWrittenReadsBack) {
  Session swept = testing::FiveStageNetwork();
  testing::SweepOver(swept, 13e6, 15e6, 9);
  RunSweepPoints(swept, SweepUse::Table);
  Load("round.s1p", TouchstoneText(swept, "now"));
  ASSERT_EQ(session.SweepPoints, 9);
  for (int k = 0; k < 9; ++k) {
    EXPECT_EQ(session.LoadFreq[k + 1], swept.SweepFreq[k]);
    EXPECT_NEAR(session.LoadR[k + 1], swept.SweepR[k], 1e-9 * std::abs(swept.SweepR[k]));
    EXPECT_NEAR(session.LoadX[k + 1], swept.SweepX[k], 1e-9 * std::abs(swept.SweepX[k]));
  }
}

}  // namespace
}  // namespace kalvex
