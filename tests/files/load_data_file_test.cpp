#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/load_data_file.h"
#include "support/fake_dialogs.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

using testing::FakeDialogs;
using testing::JoinLines;

struct FieldCase {
  const char* line;
  const char* field;
  const char* rest;
};

class NextFieldTable : public ::testing::TestWithParam<FieldCase> {};

TEST_P(NextFieldTable, TakesOneFieldOffTheFront) {
  std::string line = GetParam().line;
  std::string field = "previous";
  NextField(line, field);
  EXPECT_EQ(field, GetParam().field);
  EXPECT_EQ(line, GetParam().rest);
}

INSTANTIATE_TEST_SUITE_P(Fields, NextFieldTable,
                         ::testing::Values(FieldCase{"14M, 50, -3", "14M", " 50, -3"},
                                           FieldCase{",,14M,,50,,-3,", "14M", "50,,-3,"},
                                           FieldCase{"-3,", "-3", ""},
                                           FieldCase{"-3", "-3", ""},
                                           FieldCase{",,,", "previous", ""},
                                           FieldCase{"", "previous", ""},
                                           FieldCase{" 50 ,x", " 50 ", "x"}));

class LoadDataFileTest : public testing::TempDirTest {
 protected:
  void SetUp() override {
    TempDirTest::SetUp();
    InitialiseSession(session);
    session.LoadSource = 1;
    session.SweepStart = 1e6;
    session.SweepStop = 2e6;
    session.SweepPoints = 51;
    session.FileName = "net.SSF";
  }

  bool Apply(const std::vector<std::string>& lines) {
    WriteFile("load.RJX", JoinLines(lines));
    return ApplyLoadDataFile(session, dialogs, PathOf("load.RJX"));
  }

  void ExpectSweepSettingsRestored() const {
    EXPECT_EQ(session.SweepPoints, 51);
    EXPECT_EQ(session.SweepStart, 1e6);
    EXPECT_EQ(session.SweepStop, 2e6);
    EXPECT_EQ(session.LoadSource, 1);
  }

  std::vector<std::string> Points(int count) {
    std::vector<std::string> lines{"! generated"};
    for (int k = 1; k <= count; ++k) {
      lines.push_back(std::to_string(1'000'000 + k) + ", " + std::to_string(k) + ", -" +
                      std::to_string(k));
    }
    return lines;
  }

  Session session;
  FakeDialogs dialogs;
};

TEST_F(LoadDataFileTest, ReadsTheDocumentedExample) {
  ASSERT_TRUE(Apply({"! antenna, 50 ohm bridge", "14.0M, 52.3, -12.5", "14.1M, 50.9, -4.2",
                     "14.2M, 50.2, 3.8"}));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(session.SweepPoints, 3);
  EXPECT_EQ(session.SavedSweepPoints, 51);
  EXPECT_EQ(session.LoadFreq[1], 14e6);
  EXPECT_EQ(session.LoadR[2], 50.9);
  EXPECT_EQ(session.LoadX[3], 3.8);
  EXPECT_EQ(session.LoadSource, 2);
  EXPECT_EQ(session.SweepStart, 14e6);
  EXPECT_EQ(session.SweepStop, 14.2e6);
  EXPECT_EQ(session.DataIndex, 2);
  EXPECT_EQ(session.Frequency, 14.1e6);
  EXPECT_EQ(session.Value[0][1], 50.9);
  EXPECT_EQ(session.Value[0][2], -4.2);
  EXPECT_EQ(session.FileName, "net.SSF");
}

TEST_F(LoadDataFileTest, FivePointsTakeTheLoadFromTheThird) {
  ASSERT_TRUE(Apply(Points(5)));
  EXPECT_EQ(session.DataIndex, 3);
  EXPECT_EQ(session.Frequency, 1'000'003);
  EXPECT_EQ(session.Value[0][1], 3);
  EXPECT_EQ(session.Value[0][2], -3);
}

struct LineCase {
  const char* line;
  double f, r, x;
};

class DataLines : public LoadDataFileTest, public ::testing::WithParamInterface<LineCase> {};

TEST_P(DataLines, ReadTheirThreeFields) {
  ASSERT_TRUE(Apply({"1M, 1, 1", GetParam().line}));
  ASSERT_EQ(session.SweepPoints, 2);
  EXPECT_DOUBLE_EQ(session.LoadFreq[2], GetParam().f) << GetParam().line;
  EXPECT_DOUBLE_EQ(session.LoadR[2], GetParam().r) << GetParam().line;
  EXPECT_DOUBLE_EQ(session.LoadX[2], GetParam().x) << GetParam().line;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, DataLines,
    ::testing::Values(LineCase{",,14M,,50,,-3,", 14e6, 50, -3},
                      LineCase{"14.2M, 50, -j12", 14.2e6, 50, -12},
                      LineCase{"   7e6,  25.5 , 10   ", 7e6, 25.5, 10},
                      LineCase{"1000000 50, 1, 2", 100000050, 1, 2},  // spaces do not separate
                      LineCase{"x, y, z", 0, 0, 0},                   // not numbers: 0
                      // Missing fields repeat the last field taken.
                      LineCase{"14M;50;-3", 14e6, 14e6, 14e6},
                      LineCase{"3M, 75", 3e6, 75, 75}));

TEST_F(LoadDataFileTest, CommentAndBlankLinesAreSkipped) {
  ASSERT_TRUE(Apply({"", "! a", "* b", "' c", "/ d", "\\ e", "   ! indented", "5M,1,2", "   ",
                     "/ between", "6M,3,4"}));
  EXPECT_EQ(session.SweepPoints, 2);
  EXPECT_EQ(session.LoadFreq[2], 6e6);
}

TEST_F(LoadDataFileTest, TrailingCommentsKeepThePointsButSayParserError) {
  ASSERT_TRUE(Apply({"5M,1,2", "6M,3,4", "! end of data", ""}));
  EXPECT_EQ(dialogs.MessageTexts(), std::vector<std::string>{"Parser error"});
  EXPECT_EQ(session.SweepPoints, 2);
  EXPECT_EQ(session.LoadSource, 2);
  EXPECT_EQ(session.FileName, "");
}

TEST_F(LoadDataFileTest, AThousandPointsFit) {
  ASSERT_TRUE(Apply(Points(1000)));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(session.SweepPoints, 1000);
  EXPECT_EQ(session.LoadFreq[1000], 1'001'000);
  EXPECT_EQ(session.DataIndex, 501);
}

TEST_F(LoadDataFileTest, MoreThanAThousandKeepTheFirstThousand) {
  ASSERT_TRUE(Apply(Points(1001)));
  EXPECT_EQ(dialogs.MessageTexts(), std::vector<std::string>{"Parser error"});
  EXPECT_EQ(session.SweepPoints, 1000);
  EXPECT_EQ(session.LoadFreq[1000], 1'001'000);
  EXPECT_EQ(session.SweepStop, 1'001'000);
}

TEST_F(LoadDataFileTest, OnlyCommentsRestoreTheSweepSettings) {
  EXPECT_FALSE(Apply({"! nothing here", "", "* still nothing"}));
  EXPECT_EQ(dialogs.MessageTexts(), std::vector<std::string>{"Parser error"});
  ExpectSweepSettingsRestored();
}

TEST_F(LoadDataFileTest, MissingFileSaysParserErrorAndRestores) {
  EXPECT_FALSE(ApplyLoadDataFile(session, dialogs, PathOf("absent.RJX")));
  EXPECT_EQ(dialogs.MessageTexts(), std::vector<std::string>{"Parser error"});
  ExpectSweepSettingsRestored();
}

TEST_F(LoadDataFileTest, CancelledChooserRestoresSilently) {
  session.LoadSource = 2;
  EXPECT_FALSE(GetLoadData(session, dialogs));
  EXPECT_EQ(dialogs.chooserTitles, std::vector<std::string>{"Get frequencies and load data"});
  EXPECT_TRUE(dialogs.messages.empty());
  ExpectSweepSettingsRestored();
}

TEST_F(LoadDataFileTest, TheDipoleTableLoads) {
  ASSERT_TRUE(ApplyLoadDataFile(session, dialogs, KALVEX_EXAMPLES_DIR "/dipole20m.RJX"));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(session.SweepPoints, 81);
  EXPECT_EQ(session.SweepStart, 13.8e6);
  EXPECT_EQ(session.SweepStop, 14.6e6);
  EXPECT_EQ(session.DataIndex, 41);
  EXPECT_EQ(session.Frequency, 14.2e6);
  EXPECT_EQ(session.Value[0][1], 63.837);
  EXPECT_EQ(session.Value[0][2], 5.4822);
}

}  // namespace
}  // namespace kalvex
