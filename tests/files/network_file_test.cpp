#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/network_file.h"
#include "support/fake_dialogs.h"
#include "support/session_setup.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

using testing::SplitLines;

const char* const kProblemTail = "\r\n\r\nDefaults have been used but the network is empty.";

class NetworkFileTest : public testing::TempDirTest {
 protected:
  void SetUp() override {
    TempDirTest::SetUp();
    written = testing::WithStages(testing::SessionOnLoad(36.5, -12.25, 14e6),
                                  {{SeriesInductor, {0, 1e-6, 200}}, {ShuntCapacitor, {0, 4.7e-10, 1000}},
                                   {Empty, {}}, {SeriesLine, {0, 33.333333333333336, 14.2e6, 50}}});
    written.SystemZ = 75;
    written.QCircle = 2;
    written.VSWRCircle = 1.5f;
    testing::SweepOver(written, 13.5e6, 14.5e6, 100);
    InitialiseSession(read);
  }

  // The text WriteNetworkFile gives for `written`, as its 50 lines. A wrong
  // layout fails here, once, rather than by indexing past the end later.
  std::vector<std::string> WrittenLines() {
    EXPECT_TRUE(WriteNetworkFile(written, dialogs, PathOf("net")));
    std::vector<std::string> lines = SplitLines(ReadFile("net.SSF"));
    EXPECT_EQ(lines.size(), 50u);
    lines.resize(50);
    return lines;
  }

  bool ReadLines(const std::vector<std::string>& lines) {
    WriteFile("in.SSF", testing::JoinLines(lines));
    return ReadNetworkFile(read, dialogs, PathOf("in.SSF"));
  }

  void ExpectNetworkDefaults() const {
    EXPECT_EQ(std::tuple(read.Frequency, read.SystemZ), std::tuple(1'000'000, 50));
    EXPECT_EQ(read.Value[0], (std::array<double, kSlotCount>{0, 50}));
    EXPECT_EQ(read.ElementType, decltype(read.ElementType){});
    for (int s = 1; s <= kLastStage; ++s) EXPECT_EQ(read.Value[s], (std::array<double, kSlotCount>{}));
  }

  Session written;
  Session read;
  testing::FakeDialogs dialogs;
};

TEST_F(NetworkFileTest, WritesTheLayoutLineByLine) {
  const std::vector<std::string> lines = WrittenLines();
  const std::pair<int, const char*> expected[] = {
      {0, "Kalvex network file"}, {1, "2026-11-22 12:00:00"}, {2, ""}, {3, "Frequency:  14000000 "},
      {4, "System impedance:  75 "}, {6, "Antenna R:  36.5 "}, {7, "Antenna X: -12.25 "},
      {9, "Element type for stage 1: 3 "}, {10, "   Value(1):  1E-06 "}, {11, "   Value(2):  200 "},
      {14, "   Value(5):  0 "}, {15, ""}, {16, "Element type for stage 2: 2 "}, {17, "   Value(1):  4.7E-10 "},
      {30, "Element type for stage 4: 5 "}, {31, "   Value(1):  33.3333333333333 "},
      {37, "Element type for stage 5: 0 "}, {43, ""}, {44, ""}, {45, "Q circle value:  2 "},
      {46, "VSWR circle value:  1.5 "}, {47, "Sweep start:  13500000 "}, {48, "Sweep stop:  14500000 "},
      {49, "Number of points: 100 "}};
  for (const auto& [index, text] : expected) EXPECT_EQ(lines[index], text) << index;
  EXPECT_TRUE(ReadFile("net.SSF").ends_with("\r\n"));
}

// The sample network, then one with a cable (all five slots written) and a
// transformer (three), come back whole with their type numbers.
TEST_F(NetworkFileTest, RoundTripRestoresTheSession) {
  for (const bool feed : {false, true}) {
    if (feed) {
      written = testing::WithStages(written, {{Transformer, {0, 49, 2.2e-5, 1.5e-7}},
                                              {CoaxialCable, {0, 30.48, 50, 0.66, 1.3916, 0.0213}},
                                              {SeriesInductor, {}}, {CoaxialCable, {0, 0.25, 450, 0.91, 0.05, 0}}});
    }
    const std::vector<std::string> lines = WrittenLines();
    if (feed) EXPECT_EQ(std::tuple(lines[9], lines[16], lines[21]),
                        std::tuple("Element type for stage 1: 16 ", "Element type for stage 2: 15 ", "   Value(5):  .0213 "));
    ASSERT_TRUE(ReadLines(lines));
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(std::tuple(read.Frequency, read.SystemZ, read.Value[0], read.ElementType, read.VSWRCircle,
                         read.SweepStop, read.SweepPoints),
              std::tuple(written.Frequency, written.SystemZ, written.Value[0], written.ElementType,
                         written.VSWRCircle, written.SweepStop, written.SweepPoints));
    for (int s = 1; s <= kLastStage; ++s) {
      for (int k = 1; k <= 5; ++k) {
        EXPECT_NEAR(read.Value[s][k], written.Value[s][k], 1e-13 * std::abs(written.Value[s][k])) << s << k;
      }
    }
  }
}

// Comment and empty lines are skipped anywhere, labels are not checked, and
// element types round halves to even.
TEST_F(NetworkFileTest, ReadsWhatTheLinesHoldAndNotTheirLabels) {
  std::vector<std::string> lines = WrittenLines();
  lines[3] = "xyz: 1e7";
  lines[4] = " 1 000 ";  // no ":" gives the whole line; spaces are ignored
  lines[16] = "Element type for stage 2: 2.5 ";
  lines[23] = "Element type for stage 3: 3.5 ";
  lines[37] = "Element type for stage 5: -0.5 ";
  lines.insert(lines.begin() + 12, "* a note between the values: 99");
  lines.insert(lines.begin() + 4, "");
  lines.insert(lines.begin(), "*first");
  ASSERT_TRUE(ReadLines(lines));
  EXPECT_EQ(std::tuple(read.Frequency, read.SystemZ, read.Value[1][2], read.Value[1][3]),
            std::tuple(10'000'000, 1000, 200, 0));
  EXPECT_EQ(read.ElementType, (decltype(read.ElementType){0, 3, 2, 4, 5, 0}));
}

// Each check that fails says which file and falls back on the defaults;
// neither a 16-bit integer nor a double holds the last two.
TEST_F(NetworkFileTest, FailingChecksSayWhichFileAndFallBackOnDefaults) {
  for (const auto& [line, text] :
       {std::pair{3, "Frequency:  9000 "}, {4, "System impedance:  .5 "}, {6, "Antenna R:  .5 "},
        {46, "VSWR circle value:  1 "}, {47, "Sweep start:  9999 "}, {48, "Sweep stop:  10000 "},
        {49, "Number of points: 0 "}, {9, "Element type for stage 1: 70000 "},
        {10, "   Value(1):  1E+999 "}, {45, "Q circle value:  .05 "}}) {
    std::vector<std::string> lines = WrittenLines();
    lines[line] = text;
    dialogs.messages.clear();
    EXPECT_FALSE(ReadLines(lines)) << text;
    EXPECT_EQ(dialogs.MessageTexts(),
              std::vector<std::string>{"We had a problem reading file " + PathOf("in.SSF") + kProblemTail});
    ExpectNetworkDefaults();
  }
  EXPECT_FLOAT_EQ(read.QCircle, 0.05f);  // a value read before the failure stays
}

TEST_F(NetworkFileTest, LastSessionRestoresWhatTheNetworkReaderRefusesAndAFailedWriteSaysSo) {
  written.Value[0][1] = 0.5;
  WriteLastSession(written, dialogs, PathOf(kLastSessionFileName));
  EXPECT_EQ(SplitLines(ReadFile(kLastSessionFileName))[0], "Kalvex last-session file");
  ReadLastSession(read, PathOf(kLastSessionFileName));
  EXPECT_EQ(std::pair(read.Value[0][1], read.ElementType[1]), std::pair(0.5, int16_t{SeriesInductor}));
  EXPECT_TRUE(dialogs.messages.empty());

  EXPECT_FALSE(ReadNetworkFile(read, dialogs, PathOf(kLastSessionFileName)));
  EXPECT_EQ(read.Value[0][1], 50);
  dialogs.messages.clear();
  read.ElementType[3] = ShuntResistor;
  read.Frequency = 3;
  ReadLastSession(read, PathOf("absent.SSF"));  // missing: silently the defaults
  ExpectNetworkDefaults();
  EXPECT_TRUE(dialogs.messages.empty());
  read.Frequency = 7e6;  // a cancelled chooser leaves the network alone; a missing file is the defaults
  EXPECT_TRUE(!ReadNetworkFile(read, dialogs, "") && read.Frequency == 7e6);
  EXPECT_FALSE(ReadNetworkFile(read, dialogs, PathOf("absent.SSF")));
  EXPECT_EQ(dialogs.MessageTexts(),
            (std::vector<std::string>{"No file was chosen;  we are exiting the file-reading routine.",
                                      "We had a problem reading file " + PathOf("absent.SSF") + kProblemTail}));
  ExpectNetworkDefaults();
  dialogs.messages.clear();

  WriteLastSession(written, dialogs, PathOf("no-such-folder/LASTSESSION.SSF"));
  EXPECT_EQ(dialogs.beeps, 1);
  EXPECT_EQ(dialogs.MessageTexts(),
            std::vector<std::string>{"WriteLastSessionErrorHandler\r\nThe Kalvex last-session file was not written."});
}

TEST(NetworkFileNames, CutTheLastComponentAtItsFirstPoint) {
  for (const auto& [chosen, name] :
       {std::pair{"C:\\data\\amp.rev2.SSF", "C:\\data\\amp.SSF"}, {"C:\\my.nets\\amp", "C:\\my.nets\\amp.SSF"},
        {"/home/ham/my.nets/dipole.ssf", "/home/ham/my.nets/dipole.SSF"}, {"plain", "plain.SSF"}, {".hidden", ".SSF"}}) {
    EXPECT_EQ(NetworkFileName(chosen), name);
  }
}

}  // namespace
}  // namespace kalvex
