#include <gtest/gtest.h>

#include "files/exit_actions.h"
#include "files/network_file.h"
#include "files/startup.h"
#include "support/fake_dialogs.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

class StartupAndExitTest : public testing::TempDirTest {
 protected:
  std::filesystem::path Dir() const { return std::filesystem::path(PathOf("")); }
  std::filesystem::path LastSession() const { return PathOf(kLastSessionFileName); }

  Session session;
  testing::FakeDialogs dialogs;
};

TEST_F(StartupAndExitTest, FirstRunInAnEmptyFolder) {
  StartSession(session, Dir());
  EXPECT_TRUE(NetworkIsEmpty(session));
  EXPECT_EQ(session.ChartAspect, 0.75f);  // the defaults file's start values
  EXPECT_EQ(session.DefaultInductorQ, 200);
  EXPECT_EQ(WelcomeCaption(session), "Kalvex 2.12 - Welcome !");
}

TEST_F(StartupAndExitTest, EndAndQuitThenStartResumesTheSession) {
  StartSession(session, Dir());
  session.ElementType[2] = ShuntInductor;
  session.Value[2][1] = 2.2e-6;
  session.Frequency = 7.1e6;
  EXPECT_EQ(EndAndQuit(session, dialogs, LastSession()),
            "Data for this session has been saved as 'LastSession'");

  Session next;
  StartSession(next, Dir());
  EXPECT_EQ(next.ElementType[2], ShuntInductor);
  EXPECT_EQ(next.Value[2][1], 2.2e-6);
  EXPECT_EQ(next.Frequency, 7.1e6);
}

TEST_F(StartupAndExitTest, SaveThenExitWritesBothFiles) {
  StartSession(session, Dir());
  session.ElementType[1] = SeriesResistor;
  session.Value[1][1] = 10;
  dialogs.fileNames.push_back(PathOf("antenna.match"));
  EXPECT_EQ(SaveThenExit(session, dialogs, LastSession()), "This session data has been saved");
  EXPECT_EQ(dialogs.chooserTitles, std::vector<std::string>{"Write Kalvex File"});
  EXPECT_EQ(session.FileName, PathOf("antenna.match"));
  EXPECT_TRUE(std::filesystem::exists(PathOf("antenna.SSF")));
  EXPECT_TRUE(std::filesystem::exists(LastSession()));
}

}  // namespace
}  // namespace kalvex
