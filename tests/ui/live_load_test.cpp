#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include "support/five_stage_network.h"
#include "support/pages_in_folder.h"
#include "support/simulated_analyser_process.h"
#include "ui/analysis_page.h"
#include "ui/live_load_window.h"
#include "ui/session_history.h"

namespace kalvex {
namespace {

// The Analysis page with the live-load window on the simulated analyser,
// sweeping 13..15 MHz in 21 points.
class LiveLoadTest : public testing::PagesInFolder {
 protected:
  void SetUp() override {
    PagesInFolder::SetUp();
    session = testing::FiveStageNetwork();
    session.CoilArcRadius = 80;
    session.SweepShown = 1;
    page = std::make_unique<AnalysisPage>(session, dialogs);
    window = LiveLoadWindow::Show(session, dialogs);
  }
  void TearDown() override {
    delete window;
    page.reset();
    PagesInFolder::TearDown();
  }

  void Start(const std::string& port) {
    window->cboPort->setCurrentText(QString::fromStdString(port));
    window->txtStart->setText("13M");
    window->txtStop->setText("15M");
    window->txtPoints->setText("21");
    window->cmdStartStop->click();
  }
  bool Measured() const { return session.LoadSource == 2 && session.SweepPoints == 21; }

  SessionHistory history{session};
  std::unique_ptr<AnalysisPage> page;
  LiveLoadWindow* window = nullptr;
};

// While live, each sweep is the load data and the page shows the rate; Stop
// gives back the load of before, Freeze keeps the last sweep, and a device
// that vanishes leaves its last sweep with a message. A sweep kept is one step
// of the history, undone back to the load of before; the sweeps are none.
// However the run ended, its last sweep saves as a Touchstone file.
TEST_F(LiveLoadTest, EndsAsTheUserOrTheDeviceChooses) {
  struct Case {
    const char* name;
    std::vector<std::string> simulator;
    QPushButton* LiveLoadWindow::*button;  // pressed after the first sweep; none: the device ends it
    bool loadKept;
    const char* message;
    const char* step;
  };
  for (const Case& c : {Case{"Stop", {}, &LiveLoadWindow::cmdStartStop, false, nullptr, ""},
                        Case{"Freeze", {}, &LiveLoadWindow::cmdFreeze, true, nullptr, "Live load kept"},
                        Case{"vanishes in the second sweep", {"--vanish-after", "30"}, nullptr, true,
                             "went away in the middle of a sweep", "Live load kept"}}) {
    session.LoadSource = 1;
    session.SweepPoints = 5;
    dialogs.messages.clear();
    history.Stack().clear();
    history.Settle();
    std::vector<std::string> arguments = c.simulator;
    arguments.insert(arguments.end(), {"--scan-time", "20"});
    const testing::SimulatedAnalyserProcess simulator(arguments);
    Start(simulator.Port());
    ASSERT_TRUE(QTest::qWaitFor([this] { return Measured(); }, 20000)) << c.name << ": no sweep came";
    EXPECT_DOUBLE_EQ(session.LoadFreq[21], 15e6) << c.name;
    EXPECT_EQ(page->tuning->txtFreq->text().trimmed(), "14 M") << c.name << ": the middle point's frequency";
    if (c.button) {
      ASSERT_TRUE(QTest::qWaitFor([this] { return page->StatusLine()->text().contains(" sweeps/s"); }, 20000))
          << c.name << ": " << page->StatusLine()->text().toStdString();
      (window->*c.button)->click();
    } else {
      ASSERT_TRUE(QTest::qWaitFor([this] { return !dialogs.messages.empty(); }, 20000)) << c.name;
    }
    EXPECT_EQ(window->cmdStartStop->text(), "Start") << c.name;
    EXPECT_EQ(Measured(), c.loadKept) << c.name;
    EXPECT_EQ(session.LoadSource, c.loadKept ? 2 : 1) << c.name;
    EXPECT_FALSE(page->StatusLine()->text().contains("Live load")) << c.name;
    EXPECT_EQ(history.Stack().undoText().toStdString(), c.step) << c.name;
    history.Undo();
    EXPECT_EQ(std::tuple(session.LoadSource, session.SweepPoints), std::tuple(1, 5)) << c.name;
    if (c.message) {
      ASSERT_EQ(dialogs.messages.size(), 1u) << c.name;
      EXPECT_NE(dialogs.messages[0].text.find(c.message), std::string::npos) << dialogs.messages[0].text;
      EXPECT_NE(dialogs.messages[0].text.find("The last complete sweep stays as the load data."), std::string::npos);
    } else {
      EXPECT_TRUE(dialogs.messages.empty()) << c.name << ": " << dialogs.messages[0].text;
    }
    dialogs.fileNames.push_back("antenna");
    window->cmdSave->click();
    const std::string text = ReadFile("antenna.s1p");
    EXPECT_NE(text.find("! S11 as corrected by the analyser's own calibration\n# Hz S RI R 50\n13000000 "),
              std::string::npos)
        << c.name << ": " << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3 + 1 + 21) << c.name;
  }
}

}  // namespace
}  // namespace kalvex
