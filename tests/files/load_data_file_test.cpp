#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/load_data_file.h"
#include "support/fake_dialogs.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

class LoadDataFileTest : public testing::TempDirTest {
 protected:
  void SetUp() override {
    TempDirTest::SetUp();
    InitialiseSession(session);
    std::tie(session.LoadSource, session.SweepStart, session.SweepStop, session.SweepPoints) = Restored();
    session.FileName = "net.SSF";
  }

  bool Apply(const std::vector<std::string>& lines) {
    WriteFile("load.RJX", testing::JoinLines(lines));
    return ApplyLoadDataFile(session, dialogs, PathOf("load.RJX"));
  }

  // The sweep settings before a load-data file, which a failed one restores.
  static std::tuple<int16_t, double, double, int16_t> Restored() { return {1, 1e6, 2e6, 51}; }
  std::tuple<int16_t, double, double, int16_t> Settings() const {
    return {session.LoadSource, session.SweepStart, session.SweepStop, session.SweepPoints};
  }

  static std::vector<std::string> Points(int count) {
    std::vector<std::string> lines{"! generated"};
    for (int k = 1; k <= count; ++k) lines.push_back(std::to_string(1'000'000 + k) + ", 50, -1");
    return lines;
  }

  Session session;
  testing::FakeDialogs dialogs;
};

TEST_F(LoadDataFileTest, ReadsTheDocumentedExampleAndTakesTheMiddlePoint) {
  ASSERT_TRUE(Apply({"! antenna, 50 ohm bridge", "14.0M, 52.3, -12.5", "14.1M, 50.9, -4.2",
                     "14.2M, 50.2, 3.8", "", "/ between", "* b", "' c", "\\ e", "   ! indented", "14.3M, 50, 9",
                     "14.4M, 49, 12"}));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(std::tuple(session.SweepPoints, session.SavedSweepPoints, session.LoadSource, session.DataIndex),
            std::tuple(5, 51, 2, 3));
  EXPECT_EQ(session.LoadR[2], 50.9);
  EXPECT_EQ(std::tuple(session.SweepStart, session.SweepStop, session.Frequency), std::tuple(14e6, 14.4e6, 14.2e6));
  EXPECT_EQ(std::tuple(session.Value[0], session.FileName),
            std::tuple(std::array<double, kSlotCount>{0, 50.2, 3.8}, "net.SSF"));
}

// Fields are split at commas (empty fields skipped, spaces kept within);
// text that is no number reads as 0, and missing fields repeat the last one.
TEST_F(LoadDataFileTest, DataLinesReadTheirThreeFields) {
  struct Case {
    const char* line;
    double f, r, x;
  };
  for (const Case& c : {Case{",,14M,,50,,-3,", 14e6, 50, -3}, Case{"14.2M, 50, -j12", 14.2e6, 50, -12},
                        Case{"   7e6,  25.5 , 10   ", 7e6, 25.5, 10},
                        Case{"1000000 50, 1, 2", 100000050, 1, 2}, Case{"x, y, z", 0, 0, 0},
                        Case{"14M;50;-3", 14e6, 14e6, 14e6}, Case{"3M, 75", 3e6, 75, 75}}) {
    ASSERT_TRUE(Apply({"1M, 1, 1", c.line}));
    ASSERT_EQ(session.SweepPoints, 2);
    EXPECT_DOUBLE_EQ(session.LoadFreq[2], c.f) << c.line;
    EXPECT_DOUBLE_EQ(session.LoadR[2], c.r) << c.line;
    EXPECT_DOUBLE_EQ(session.LoadX[2], c.x) << c.line;
  }
}

struct TableEnd {
  const char* name;
  std::vector<std::string> lines;
  int points;  // what stays; 0: the sweep settings come back
};

// A file that ends with comments, holds more than 1000 points, holds nothing
// or is missing says "Parser error"; the points read before it stay.
TEST_F(LoadDataFileTest, ParserErrorKeepsThePointsReadBefore) {
  std::vector<std::string> thousand = Points(1000);
  for (const TableEnd& c :
       {TableEnd{"trailing comment", {"5M,1,2", "6M,3,4", "! end of data", ""}, 2},
        TableEnd{"1001 points", Points(1001), 1000}, TableEnd{"1000 points", thousand, 1000},
        TableEnd{"only comments", {"! nothing here", "", "* still nothing"}, 0}}) {
    SetUp();
    dialogs = testing::FakeDialogs();
    EXPECT_EQ(Apply(c.lines), c.points > 0) << c.name;
    EXPECT_EQ(dialogs.MessageTexts(), testing::FakeDialogs::Only(c.lines == thousand ? nullptr : "Parser error"))
        << c.name;
    if (c.points == 0) {
      EXPECT_EQ(Settings(), Restored());
    } else {
      EXPECT_EQ(session.SweepPoints, c.points) << c.name;
      EXPECT_EQ(session.SweepStop, session.LoadFreq[c.points]) << c.name;
      EXPECT_EQ(session.FileName, c.lines == thousand ? "net.SSF" : "") << c.name;
    }
  }
  EXPECT_FALSE(ApplyLoadDataFile(session, dialogs, PathOf("absent.RJX")));
  EXPECT_EQ(Settings(), Restored());
}

// A negative resistance is no load: such points are left out, one message
// naming their lines; R = 0, a lossless load, stays.
TEST_F(LoadDataFileTest, NegativeResistanceIsLeftOut) {
  ASSERT_TRUE(Apply({"! r", "14.0M, 50, 1", "14.1M, -3, 1", "14.2M, 0, 5", "14.3M, -0.1, 0", "14.4M, 20, 0"}));
  EXPECT_EQ(std::tuple(session.SweepPoints, session.LoadR[2], session.LoadFreq[3]), std::tuple(3, 0.0, 14.4e6));
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].text.find("lines 3, 5 give no finite load impedance with a resistance of 0"),
            std::string::npos);
  EXPECT_FALSE(Apply({"14.1M, -3, 1"}));
  EXPECT_EQ(session.SweepPoints, 3);  // the table before it
}

}  // namespace
}  // namespace kalvex
