#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <sstream>

#include "cli.h"
#include "design/design_page.h"
#include "files/exit_dialog.h"
#include "files/network_file.h"
#include "files/welcome_page.h"
#include "support/fake_dialogs.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

// A page that records what the framework hands it.
class ProbePage : public Page {
 public:
  ProbePage() : Page({12000, 9000}) {}
  int userCloses = 0;
  std::vector<std::tuple<int, double, double>> downs;

 protected:
  void OnUserClose() override { ++userCloses; }
  void OnMouseDown(int button, double x, double y) override { downs.emplace_back(button, x, y); }
};

TEST(Page, ControlsKeepTheirPlaceInProportion) {
  ProbePage page;
  page.resize(800, 600);
  page.show();
  QPushButton button(&page);
  page.Place(&button, 6000, 4500, 1200, 300);
  EXPECT_EQ(button.geometry(), QRect(400, 300, 80, 20));
  page.resize(1600, 1200);
  QApplication::processEvents();
  EXPECT_EQ(button.geometry(), QRect(800, 600, 160, 40));
}

TEST(Page, MouseArrivesInPageUnitsWithTheButton) {
  ProbePage page;
  page.resize(1200, 900);
  page.show();
  QTest::mouseClick(&page, Qt::LeftButton, {}, QPoint(600, 450));
  QTest::mouseClick(&page, Qt::RightButton, {}, QPoint(120, 90));
  ASSERT_EQ(page.downs.size(), 2u);
  EXPECT_EQ(page.downs[0], std::make_tuple(1, 6000.0, 4500.0));
  EXPECT_EQ(page.downs[1], std::make_tuple(2, 1200.0, 900.0));
}

TEST(Page, TellsTheUsersCloseFromTheProgramsClose) {
  ProbePage byUser;
  byUser.show();
  byUser.close();
  EXPECT_EQ(byUser.userCloses, 1);
  ProbePage byProgram;
  byProgram.show();
  byProgram.CloseByProgram();
  EXPECT_EQ(byProgram.userCloses, 0);
}

// Runs each test in a fresh folder, as the program runs in its working folder.
class PagesInFolder : public testing::TempDirTest {
 protected:
  void SetUp() override {
    TempDirTest::SetUp();
    previous_ = std::filesystem::current_path();
    std::filesystem::current_path(PathOf(""));
  }
  void TearDown() override {
    std::filesystem::current_path(previous_);
    TempDirTest::TearDown();
  }

  Session session;
  testing::FakeDialogs dialogs;

 private:
  std::filesystem::path previous_;
};

TEST_F(PagesInFolder, WelcomePageStartsTheSession) {
  Session saved;
  InitialiseSession(saved);
  saved.ElementType[1] = SeriesCapacitor;
  saved.Value[1][1] = 1e-10;
  WriteLastSession(saved, dialogs);
  WriteFile("Defaults.TXT", "1.1\r\n900\r\n150\r\n");

  WelcomePage welcome(session, dialogs);
  EXPECT_EQ(welcome.windowTitle(), "Kalvex 2.12 - Welcome !");
  EXPECT_EQ(welcome.lblVersion->text(), "Version 2.12 from Brenlow Software");
  EXPECT_EQ(welcome.cmdStart->text(), "Start");
  EXPECT_EQ(welcome.cmdStart->toolTip(), "Start the program");
  EXPECT_FLOAT_EQ(welcome.CoilArcRadius, 80);
  EXPECT_EQ(session.ElementType[1], SeriesCapacitor);
  EXPECT_FLOAT_EQ(session.ChartAspect, 1.1f);
  EXPECT_FALSE(welcome.Drawing().Commands().empty());

  std::filesystem::remove(kLastSessionFileName);
  welcome.show();
  welcome.close();  // the close box is a way out too
  EXPECT_TRUE(std::filesystem::exists(kLastSessionFileName));
}

TEST_F(PagesInFolder, ExitDialogOnAnEmptyNetwork) {
  InitialiseSession(session);
  ExitDialog dialog(session, dialogs);
  EXPECT_EQ(dialog.windowTitle(), "Exit ?");
  EXPECT_FALSE(dialog.cmdSave->isEnabled());
  EXPECT_EQ(dialog.Label2->text(), "The network is empty.");
  EXPECT_FALSE(dialog.Label2->isHidden());

  dialog.cmdExit->click();
  EXPECT_TRUE(std::filesystem::exists(kLastSessionFileName));
  EXPECT_EQ(dialogs.pauses, std::vector<double>{2});
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(PagesInFolder, ExitDialogSaveThenExit) {
  InitialiseSession(session);
  session.ElementType[1] = SeriesResistor;
  session.Value[1][1] = 5;
  ExitDialog cancelled(session, dialogs);
  EXPECT_TRUE(cancelled.cmdSave->isEnabled());
  cancelled.cmdSave->click();  // the chooser is cancelled: nothing happens
  EXPECT_FALSE(std::filesystem::exists(kLastSessionFileName));

  ExitDialog dialog(session, dialogs);
  dialogs.fileNames.push_back("tuner.net");
  dialog.cmdSave->click();
  EXPECT_TRUE(std::filesystem::exists("tuner.SSF"));
  EXPECT_TRUE(std::filesystem::exists(kLastSessionFileName));
  EXPECT_EQ(dialog.Label2->text(), "This session data has been saved");
  EXPECT_TRUE(dialog.Label2->isHidden());  // shown for the pause only
}

TEST_F(PagesInFolder, DesignPageCloseBoxSavesTheLastSession) {
  InitialiseSession(session);
  DesignPage page(session, dialogs, 80);
  EXPECT_EQ(page.windowTitle(), "Kalvex 2.12 - Design ");
  page.show();
  page.close();
  EXPECT_TRUE(std::filesystem::exists(kLastSessionFileName));
}

TEST_F(PagesInFolder, RenderWritesAnImageOfTheAskedSize) {
  std::ostringstream out, err;
  EXPECT_EQ(RunCli({"render", "--page", "design", "--size", "640x480", "-o", "d.png"}, out, err),
            kExitOk);
  EXPECT_EQ(QImage("d.png").size(), QSize(640, 480));
  EXPECT_EQ(RunCli({"render", "--page", "welcome", "-o", "w.png"}, out, err), kExitOk);
  EXPECT_EQ(QImage("w.png").size(), QSize(1200, 900));
  EXPECT_EQ(RunCli({"render", "--page", "welcome", "-o", "w.svg"}, out, err), kExitOk);
  EXPECT_EQ(RunCli({"render", "--page", "design", "-o", "d.pdf"}, out, err), kExitOk);
  EXPECT_TRUE(std::filesystem::file_size("d.pdf") > 0);
  EXPECT_EQ(RunCli({"render", "--page", "chart", "-o", "x.png"}, out, err), kExitUsage);
  EXPECT_EQ(RunCli({"render", "--page", "design", "-o", "x.bmp"}, out, err), kExitFailed);
  EXPECT_EQ(RunCli({"render", "--page", "design", "--size", "big", "-o", "x.png"}, out, err),
            kExitUsage);
}

}  // namespace
}  // namespace kalvex
