#include <gtest/gtest.h>

#include "analysis/tabulate.h"
#include "cli/cli_test.h"

namespace kalvex {
namespace {

using testing::SplitLines;

class SweepCommandTest : public testing::CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    SaveNetwork(SeriesInductor, 1e-6, 200);
  }

  int RunSweepCommand(std::vector<std::string> words) {
    words.insert(words.begin(), {"sweep", PathOf("net.SSF")});
    return Run(words);
  }
};

TEST_F(SweepCommandTest, UsesTheFileSettingsAndWritesTheDataLayout) {
  EXPECT_EQ(RunSweepCommand({}), kExitOk);
  const std::vector<std::string> lines = SplitLines(out.str());
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(lines[0], "Kalvex data file");
  EXPECT_EQ(lines[1], "Filename: -");
  EXPECT_TRUE(lines[6].starts_with(" 13000000  50."));
  EXPECT_TRUE(lines[10].starts_with(" 15000000  50."));
  EXPECT_EQ(err.str(), "");
}

TEST_F(SweepCommandTest, OptionsOverrideTheFileAndTheTableMatchesTheTabulatePage) {
  EXPECT_EQ(RunSweepCommand({"--start", "1M", "--stop", "2M", "--points", "11", "--table"}), kExitOk);
  const std::vector<std::string> lines = SplitLines(out.str());
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(lines[0], kTabulateHeading);

  Session session = network;
  session.LoadSource = 1;
  session.SweepStart = 1e6;
  session.SweepStop = 2e6;
  session.SweepPoints = 11;
  const std::vector<std::string> rows = TabulateSweep(session);
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 1, lines.end()), rows);
  EXPECT_TRUE(lines[6].starts_with("1.5 M "));
}

TEST_F(SweepCommandTest, LimitsSayWhatTheyReset) {
  EXPECT_EQ(RunSweepCommand({"--start", "100", "--points", "1", "--table"}), kExitOk);
  EXPECT_EQ(err.str(), "Start frequency has been reset to the minimum allowed (5 kHz)\n");
  EXPECT_EQ(SplitLines(out.str()).size(), 4u);  // heading and three points
}

TEST_F(SweepCommandTest, EntriesAboveTenGigahertzAreToldTheyWereReset) {
  EXPECT_EQ(RunSweepCommand({"--start", "20G", "--stop", "30G", "--table"}), kExitOk);
  EXPECT_EQ(err.str(),
            "Start frequency has been reset to the maximum allowed (10 gHz)\n"
            "Stop frequency has been reset to the maximum allowed.\n");
}

TEST_F(SweepCommandTest, LoadDataRunsOverTheFilePoints) {
  EXPECT_EQ(RunSweepCommand({"--load", KALVEX_EXAMPLES_DIR "/dipole20m.RJX", "-o", PathOf("out.DAT")}),
            kExitOk);
  EXPECT_EQ(out.str(), "");
  const std::vector<std::string> lines = SplitLines(ReadFile("out.DAT"));
  ASSERT_EQ(lines.size(), 6u + 81u + 1u);
  EXPECT_EQ(lines[1], "Filename: " + PathOf("out.DAT"));
  EXPECT_TRUE(lines[6].starts_with(" 13800000 "));
  EXPECT_TRUE(lines[86].starts_with(" 14600000 "));
}

TEST_F(SweepCommandTest, ParserErrorKeepsThePointsReadBefore) {
  WriteFile("short.RJX", "5M,10,1\r\n6M,20,2\r\n! trailing comment\r\n");
  EXPECT_EQ(RunSweepCommand({"--load", PathOf("short.RJX"), "--table"}), kExitOk);
  EXPECT_EQ(err.str(), "Parser error\n");
  EXPECT_EQ(SplitLines(out.str()).size(), 3u);

  WriteFile("empty.RJX", "! nothing\r\n");
  EXPECT_EQ(RunSweepCommand({"--load", PathOf("empty.RJX")}), kExitFailed);
  EXPECT_EQ(err.str(), "Parser error\n");
  EXPECT_EQ(out.str(), "");
}

TEST_F(SweepCommandTest, UsageErrors) {
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"--load", "x.RJX", "--points", "5"}, {"--start"}, {"extra"}, {"--bogus"}}) {
    EXPECT_EQ(RunSweepCommand(args), kExitUsage);
    EXPECT_NE(err.str().find("usage: kalvex-cli sweep"), std::string::npos);
  }
}

}  // namespace
}  // namespace kalvex
