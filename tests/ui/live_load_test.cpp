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

using LiveLoadTest = testing::PagesInFolder;

// The Analysis page with the live-load window on the simulated analyser,
// sweeping 13..15 MHz in 21 points. While live, each sweep is the load data
// and the page shows the rate; Stop gives back the load of before, Freeze
// keeps the last sweep, and a device that vanishes leaves its last sweep with
// a message. A sweep kept is one step of the history, undone back to the load
// of before; the sweeps are none. However the run ended, its last sweep saves
// as a Touchstone file.
TEST_F(LiveLoadTest, EndsAsTheUserOrTheDeviceChooses) {
  session = testing::FiveStageNetwork();
  session.CoilArcRadius = 80;
  session.SweepShown = 1;
  session.SweepPoints = 5;
  SessionHistory history(session);
  AnalysisPage page(session, dialogs);
  const std::unique_ptr<LiveLoadWindow> window(LiveLoadWindow::Show(session, dialogs));
  window->txtStart->setText("13M");
  window->txtStop->setText("15M");
  window->txtPoints->setText("21");
  const auto measured = [this] { return session.LoadSource == 2 && session.SweepPoints == 21; };
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
    SCOPED_TRACE(c.name);
    dialogs.messages.clear();
    std::vector<std::string> arguments = c.simulator;
    arguments.insert(arguments.end(), {"--scan-time", "20"});
    const testing::SimulatedAnalyserProcess simulator(arguments);
    window->cboPort->setCurrentText(QString::fromStdString(simulator.Port()));
    window->cmdStartStop->click();
    ASSERT_TRUE(QTest::qWaitFor(measured, 20000)) << "no sweep came";
    EXPECT_DOUBLE_EQ(session.LoadFreq[21], 15e6);
    EXPECT_EQ(page.tuning->txtFreq->text().trimmed(), "14 M") << "the middle point's frequency";
    if (c.button) {
      ASSERT_TRUE(QTest::qWaitFor([&page] { return page.StatusLine()->text().contains(" sweeps/s"); }, 20000))
          << page.StatusLine()->text().toStdString();
      (window.get()->*c.button)->click();
    } else {
      ASSERT_TRUE(QTest::qWaitFor([this] { return !dialogs.messages.empty(); }, 20000));
    }
    EXPECT_EQ(window->cmdStartStop->text(), "Start");
    EXPECT_EQ(measured(), c.loadKept);
    EXPECT_EQ(session.LoadSource, c.loadKept ? 2 : 1);
    EXPECT_FALSE(page.StatusLine()->text().contains("Live load"));
    EXPECT_EQ(history.Stack().undoText().toStdString(), c.step);
    history.Undo();
    EXPECT_EQ(std::tuple(session.LoadSource, session.SweepPoints), std::tuple(1, 5));
    if (c.message) {
      ASSERT_EQ(dialogs.messages.size(), 1u);
      EXPECT_NE(dialogs.messages[0].text.find(c.message), std::string::npos) << dialogs.messages[0].text;
      EXPECT_NE(dialogs.messages[0].text.find("The last complete sweep stays as the load data."), std::string::npos);
    } else {
      EXPECT_TRUE(dialogs.messages.empty()) << dialogs.messages[0].text;
    }
    dialogs.fileNames.push_back("antenna");
    window->cmdSave->click();
    const std::string text = ReadFile("antenna.s1p");
    EXPECT_NE(text.find("! S11 as corrected by the analyser's own calibration\n# Hz S RI R 50\n13000000 "),
              std::string::npos)
        << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3 + 1 + 21);
  }
}

}  // namespace
}  // namespace kalvex
