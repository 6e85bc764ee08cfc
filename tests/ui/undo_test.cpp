#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <functional>

#include "files/network_file.h"
#include "model/format.h"
#include "model/network_state.h"
#include "support/five_stage_network.h"
#include "support/pages_in_folder.h"
#include "ui/analysis_page.h"
#include "ui/band_window.h"
#include "ui/design_page.h"
#include "ui/match_dialog.h"
#include "ui/session_history.h"

namespace kalvex {
namespace {

// The history of a program that started on the five-stage network.
class UndoTest : public testing::PagesInFolder {
 protected:
  void SetUp() override {
    PagesInFolder::SetUp();
    session = testing::FiveStageNetwork();
    WriteNetworkFile(session, dialogs, "five_stage");
    session.Value[0] = {0, 50, 0};  // the file's load is 36 - j20
  }
  void Key(QWidget* focus, int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    focus->setFocus();
    QTest::keyClick(focus, static_cast<Qt::Key>(key), modifiers);
  }
  QString UndoText() { return history.Stack().undoText(); }

  SessionHistory history{session};
};

// Each finished edit of the Design page is one step named for it, undone to
// the exact network before it and redone again; what changes nothing, or is
// left half done, is no step. A part picked from the library is entered in
// its boxes, which Tab goes through first. The first state is the one the
// program started with: Ctrl+Z then has nothing to undo and changes nothing.
TEST_F(UndoTest, DesignPageStepsRestoreExactNetworks) {
  DesignPage design(session, dialogs);
  design.show();
  QApplication::setActiveWindow(&design);
  const auto click = [&design](double x, double y) { testing::ClickPage(design, x, y); };
  const auto pick = [&](int stage, double partX, double partY) {
    click(design.Editor().StageX[stage] + 300, 1000);
    click(partX, partY);
  };
  const std::vector<std::pair<QString, std::function<void()>>> actions = {
      {"", [&] {
         click(design.Editor().StageX[1] - 600, 1000);  // the load, accepted as it is
         Key(design.txtValue[0], Qt::Key_Return, {});
         Key(design.txtFrequency, Qt::Key_Z);
       }},
      {"Get net five_stage.SSF", [&] { dialogs.fileNames.push_back("five_stage.SSF"); design.cmdGetNet->click(); }},
      {"Frequency 14.001 MHz", [&] {
         design.txtFrequency->clear();
         QTest::keyClicks(design.txtFrequency, "14.0014M");
         Key(design.txtFrequency, Qt::Key_Return, {});
       }},
      {"Accept stage 5 (series inductor)", [&] {
         click(design.Editor().StageX[5] + 300, 1000);
         EXPECT_TRUE(design.lblClickOnALibraryPart->isVisible() && design.cmdSetup->isHidden());
         click(6400, 6000);  // the series inductor
         EXPECT_EQ(design.lblValue[0]->text(), "Inductance (H): ");
         EXPECT_FALSE(design.cmdAnalyze->isEnabled());
         Key(design.txtValue[0], Qt::Key_Tab, {});  // the part's boxes come first
         EXPECT_EQ(QApplication::focusWidget(), design.txtValue[1]);
         QTest::keyClicks(design.txtValue[0], "100n\r");  // Enter presses Accept
         EXPECT_DOUBLE_EQ(session.Value[5][1], 100e-9);
         EXPECT_TRUE(design.cmdAnalyze->isEnabled() && !design.txtValue[0]->isVisible());
       }},
      {"", [&] { pick(3, 5200, 6000); design.cmdDontAccept->click(); }},
      {"", [&] { dialogs.fileNames.push_back("saved.SSF"); design.cmdSave->click(); }},
      {"Insert at stage 2", [&] { pick(2, 10500, 7500); design.cmdAccept->click(); }},
      {"Compact", [&] { design.cmdCompact->click(); }}};
  std::vector<NetworkState> states = {NetworkStateOf(session)};
  for (const auto& [name, act] : actions) {
    act();
    if (name.isEmpty()) continue;
    EXPECT_EQ(UndoText(), name);
    states.push_back(NetworkStateOf(session));
  }
  EXPECT_EQ(states[2].frequency, 14.0014e6);  // exact behind the box's " 14.001 M"
  ASSERT_EQ(history.Stack().count(), static_cast<int>(states.size()) - 1);
  for (std::size_t k = states.size() - 1; k > 0; --k) {
    history.Undo();
    EXPECT_EQ(NetworkStateOf(session), states[k - 1]) << k;
  }
  EXPECT_EQ(design.windowTitle(), "Kalvex 2.12 - Design ");
  for (std::size_t k = 1; k < states.size(); ++k) {
    history.Redo();
    EXPECT_EQ(NetworkStateOf(session), states[k]) << k;
  }
  EXPECT_EQ(design.txtFrequency->text().trimmed(), "14.001 M");

  // A pick still open is dropped by an undo, which goes back from the
  // network as it was finished.
  pick(1, 10500, 7500);
  history.Undo();
  EXPECT_EQ(NetworkStateOf(session), states[states.size() - 2]);

  // The history's keys work with the focus in a value box; the box's own text
  // undo does not take them. Typing not yet entered is a step of its own.
  QTest::keyClicks(design.txtSystemZ, "0");  // 50 becomes 500
  const struct {
    int key;
    Qt::KeyboardModifiers modifiers;
    double systemZ;
  } presses[] = {{Qt::Key_Z, Qt::ControlModifier, 50},
                 {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, 500},
                 {Qt::Key_Z, Qt::ControlModifier, 50},
                 {Qt::Key_Y, Qt::ControlModifier, 500}};
  for (const auto& press : presses) {
    Key(design.txtSystemZ, press.key, press.modifiers);
    EXPECT_EQ(session.SystemZ, press.systemZ) << press.key << " " << press.modifiers;
    EXPECT_EQ(ParseValue(design.txtSystemZ->text().toStdString()), press.systemZ);
  }
  EXPECT_EQ(UndoText(), "System Z 500 ohms");
}

// Undo on the Analysis page, and a match applied there, put the network and
// operating point into the view as it stands, the band window open or closed:
// the zoom, the drag, the aspect, the grid, the overlays and the selected part
// stay, the page is not opened again and the defaults file is not written.
TEST_F(UndoTest, AnalysisViewStaysAcrossUndoAndAppliedMatches) {
  session.Value[0] = {0, 25, 80};
  AnalysisPage analysis(session, dialogs);
  analysis.show();
  QApplication::setActiveWindow(&analysis);
  TuningControls& tuning = *analysis.tuning;
  analysis.cmdIn->click();
  analysis.cmdDisplay->click();
  analysis.cmdQon->click();
  session.ChartCentreY = 5400;  // where a drag left the chart
  testing::ClickPage(analysis, (session.PartRightEdge[0] + session.PartRightEdge[1]) / 2.0, 800);  // stage 1
  EXPECT_EQ(tuning.cmdZ1->text() + " " + tuning.txtZ1->text(), "L enter 1.2 uH");
  tuning.optTuneSizeNormal->click();
  for (int k = 0; k < 3; ++k) tuning.topSteps[3]->click();  // ">>": 10 % over the zoom of 1.414
  EXPECT_EQ(UndoText(), "Tune stage 1");
  tuning.txtFreq->setText("14.25M");
  Key(tuning.txtFreq, Qt::Key_Return, {});
  EXPECT_EQ(UndoText(), "Test frequency 14.25 MHz");
  Key(tuning.txtZ1, Qt::Key_S);  // saving is no step
  analysis.txtAspect->setText("0.9");
  Key(analysis.txtAspect, Qt::Key_Return, {});  // nor is the view
  EXPECT_EQ(history.Stack().count(), 2);
  BandWindow* band = BandWindow::Show(session, dialogs);
  std::filesystem::remove("Defaults.TXT");
  const auto view = [this, &analysis] {
    return std::tuple(session.ChartZoom, session.ChartCentreX, session.ChartCentreY, session.ChartAspect,
                      session.GridType, session.QArcsOn, session.SelectedStage, analysis.cmdOut->isEnabled(),
                      analysis.tuning->cmdZ1->isVisible(), analysis.isVisible());
  };
  const auto before = view();

  for (const bool bandOpen : {true, false}) {
    if (!bandOpen) band->close();
    history.Undo();
    EXPECT_EQ(tuning.txtFreq->text().trimmed(), "14.2 M");
    history.Undo();
    EXPECT_EQ(tuning.txtZ1->text(), "1.2 uH") << bandOpen;
    EXPECT_EQ(analysis.StatusLine()->text().toStdString(), MatchStatusText(session));
    history.Redo();
    history.Redo();
    EXPECT_EQ(tuning.txtZ1->text(), "1.47298 uH");
  }
  tuning.txtZ1->setText("0");
  Key(tuning.txtZ1, Qt::Key_Return, {});
  EXPECT_EQ(UndoText(), "Clear stage 1");
  EXPECT_FALSE(tuning.cmdZ1->isVisible());
  history.Undo();  // the part is back, and its panel with it
  EXPECT_EQ(view(), before);
  EXPECT_FALSE(std::filesystem::exists("Defaults.TXT"));

  const NetworkState undone = NetworkStateOf(session);
  const QString shown = tuning.txtZ1->text();
  testing::WhenModalShows<MatchDialog>([](MatchDialog& dialog) {
    dialog.cboKind->setCurrentIndex(1);  // L networks
    dialog.cmdCompute->click();
    dialog.series->cmdSnap->click();
    dialog.WaitForSnap();
    dialog.lstSolutions->selectRow(3);  // another solution: the snap is dropped
    dialog.cmdApply->click();
  });
  Key(tuning.txtZ1, Qt::Key_M);
  EXPECT_EQ(UndoText(), "Match applied (L, 2 parts)");
  EXPECT_NE(NetworkStateOf(session), undone);
  EXPECT_NE(tuning.txtZ1->text(), shown);  // the panel shows the new stage 1
  EXPECT_EQ(view(), before);
}

}  // namespace
}  // namespace kalvex
