#include <gtest/gtest.h>

#include <QImage>
#include <functional>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include "files/network_file.h"
#include "model/network_state.h"
#include "support/five_stage_network.h"
#include "support/image_box.h"
#include "support/pages_in_folder.h"
#include "ui/design_page.h"
#include "ui/page_renderer.h"
#include "ui/match_dialog.h"
#include "ui/optimise_dialog.h"
#include "ui/options_page.h"
#include "ui/welcome_page.h"
#include "ui/analysis_page.h"
#include "ui/overlay_setup_dialog.h"
#include "ui/session_history.h"
#include "ui/sweep_setup_dialog.h"

namespace kalvex {
namespace {

using testing::PagesInFolder;
using testing::WhenModalShows;

TEST_F(PagesInFolder, WelcomePageStartsTheSession) {
  WriteLastSession(testing::FiveStageNetwork(), dialogs);
  WriteFile("Defaults.TXT", "1.1\r\n900\r\n150\r\n");
  WelcomePage welcome(session, dialogs);
  EXPECT_EQ(welcome.windowTitle(), "Kalvex 2.12 - Welcome !");
  EXPECT_FLOAT_EQ(session.CoilArcRadius, 60.0f * welcome.width() / welcome.height());
  EXPECT_EQ(std::tuple(session.ElementType[1], session.ChartAspect, session.DefaultInductorQ),
            std::tuple(SeriesInductor, 1.1f, 150));
  EXPECT_FALSE(welcome.Drawing().Commands().empty());

  // Closing the welcome page is a way out too: the session it read is saved.
  WriteFile(kLastSessionFileName, "");
  welcome.show();
  welcome.close();
  Session saved;
  ReadLastSession(saved);
  EXPECT_EQ(saved.ElementType[1], SeriesInductor);
}

// A page drawn in a screen's proportions is scaled more across than down, but
// the caption's glyphs are not stretched.
TEST_F(PagesInFolder, TextKeepsItsProportionsOnAWideScreen) {
  DisplayList drawing;
  drawing.SetFont(14, false);
  drawing.Text({1000, 1000}, "Chart normalized to 50 ohms");
  const auto ratio = [&drawing](PageSize screen) {
    EXPECT_EQ(RenderToFile(drawing, kAnalysisPage, 1600, 900, "t.png", 0, screen), "");
    const QRect box = testing::BoxOf(QImage("t.png"), [](QRgb pixel) { return qGray(pixel) < 128; });
    EXPECT_FALSE(box.isEmpty());
    return static_cast<double>(box.height()) / std::max(box.width(), 1);
  };
  EXPECT_NEAR(ratio({1600, 900}), ratio({}), 0.05 * ratio({}));
}

// A page shown on a fresh session, as Prepare leaves it.
template <class Page>
class PageTest : public PagesInFolder {
 protected:
  void SetUp() override {
    PagesInFolder::SetUp();
    InitialiseSession(session);
    Prepare();
    page = std::make_unique<Page>(session, dialogs);
    page->show();
  }
  virtual void Prepare() {}

  std::unique_ptr<Page> page;
};
using DesignPageTest = PageTest<DesignPage>;

// F1 lists the options page's keys. Its close box leaves it as "Return"
// does: the velocity factor's limits enforced and the Design page shown, the
// program still running. Reopening the Design page takes the frequency as the
// box shows it (a box the program writes is read again even when its text
// stays the same); Analyze takes its absolute value, and the Analysis page
// shows it.
TEST_F(DesignPageTest, LeavingAPageTakesItsBoxesAsShown) {
  session.ElementType[1] = SeriesInductor;
  auto* options = new OptionsPage(session, dialogs);
  options->setAttribute(Qt::WA_DeleteOnClose);
  options->show();
  QApplication::setActiveWindow(options);
  QTest::keyClick(options, Qt::Key_F1);
  ASSERT_FALSE(dialogs.messages.empty());
  EXPECT_EQ(dialogs.messages.back().title, "Kalvex keys");
  EXPECT_NE(dialogs.messages.back().text.find("Return"), std::string::npos);
  options->txtVelocityFactor->setText("7");
  // The page stays until the Design page replaces it: at no moment is the
  // program without a window, which would end it.
  EXPECT_FALSE(options->close());
  EXPECT_TRUE(options->isVisible());
  QApplication::processEvents();
  EXPECT_EQ(session.VelocityFactor, 1);
  EXPECT_EQ(dialogs.MessageTexts().back(), "Velocity factor has been reset to the maximum allowed.");
  const auto shown = QApplication::topLevelWidgets();
  EXPECT_TRUE(std::any_of(shown.begin(), shown.end(), [this](QWidget* w) {
    return w != page.get() && w->isVisible() && qobject_cast<DesignPage*>(w) != nullptr;
  }));
  EXPECT_EQ(session.ElementType[1], SeriesInductor);

  page->txtFrequency->setText("14123456");
  page->ReopenDesignPage();
  EXPECT_EQ(std::tuple(page->txtFrequency->text(), session.Frequency), std::tuple(QString(" 14.123 M"), 14'123'000.0));
  page->txtFrequency->setText("-2M");
  page->cmdAnalyze->click();
  const auto windows = QApplication::topLevelWidgets();
  const auto analysis = std::find_if(windows.begin(), windows.end(),
                                     [](QWidget* w) { return qobject_cast<AnalysisPage*>(w) != nullptr; });
  ASSERT_NE(analysis, windows.end());
  EXPECT_EQ(session.Frequency, 2e6);
  EXPECT_EQ(qobject_cast<AnalysisPage*>(*analysis)->tuning->txtFreq->text().trimmed(), "2 M");
  (*analysis)->close();
}

class AnalysisPageTest : public PageTest<AnalysisPage> {
 protected:
  void Prepare() override {
    session = testing::WithStages(testing::SessionOnLoad(50, 0, 14e6), {{SeriesCapacitor, {0, 100e-12, 1000}}});
    session.ChartAspect = 0.75f;
  }
};

TEST_F(AnalysisPageTest, LoadsWithItsViewAndTuningState) {
  EXPECT_EQ(page->windowTitle(), "Kalvex 2.12 - Analysis  ");
  EXPECT_FALSE(page->cmdOut->isEnabled());
  EXPECT_EQ(page->txtAspectEntry->text(), " 75");
  EXPECT_TRUE(std::filesystem::exists("Defaults.TXT"));  // the aspect's change event wrote it
  EXPECT_TRUE(page->tuning->optTuneSizeFine->isChecked());  // the first visit is fine
  EXPECT_EQ(page->tuning->txtFreq->text(), " 14 M");
  // Only the tuning values and their steps are pale green.
  const auto pale = [](QWidget* control) { return control->styleSheet().contains("rgb(238, 255, 238)"); };
  EXPECT_EQ(std::tuple(pale(page->cmdDesign), pale(page->tuning->txtZ1), pale(page->tuning->bottomSteps[0]),
                       pale(page->tuning->freqSteps[0])),
            std::tuple(false, true, true, false));
  page->tuning->optTuneSizeNormal->click();
  EXPECT_TRUE(page->tuning->optTuneSizeFine->styleSheet().contains("rgb(232, 248, 255)"));
}

TEST_F(AnalysisPageTest, OverlayDialogsSwitchTheirOverlayOnHoweverTheyClose) {
  WhenModalShows<OverlaySetupDialog>([](OverlaySetupDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Q circle setup");
    EXPECT_EQ(dialog.Text1->text(), "2");
    dialog.close();
  });
  page->cmdQsetup->click();
  EXPECT_TRUE(session.QArcsOn == 1 && page->cmdQon->styleSheet().contains("rgb(238, 255, 238)"));
  page->cmdQon->click();
  EXPECT_TRUE(session.QArcsOn == 0 && page->cmdQon->styleSheet().contains("rgb(255, 255, 255)"));

  WhenModalShows<OverlaySetupDialog>([](OverlaySetupDialog& dialog) {
    dialog.Text1->setText("1.005");
    dialog.cmdAccept->click();  // refused: the dialog stays
    EXPECT_TRUE(dialog.isVisible());
    dialog.Text1->setText("3");
    dialog.cmdAccept->click();
  });
  page->cmdVSWRsetup->click();
  EXPECT_EQ(std::tuple(session.VSWRCircleOn, session.VSWRCircle), std::tuple(1, 3.0f));
  EXPECT_EQ(dialogs.MessageTexts(), std::vector<std::string>{"VSWR circle radius must be between 1.01 and 20"});
}

TEST_F(AnalysisPageTest, SweepSetupSwitchesTheSweepOnAndEditsDisableTheTable) {
  EXPECT_TRUE(page->cmdTabulate->isEnabled());  // its default state at load
  WhenModalShows<SweepSetupDialog>([](SweepSetupDialog& dialog) {
    EXPECT_EQ(dialog.txtStart->text(), " 900 k");  // the start values
    dialog.txtStart->setText("20G");  // the value parser's limit: 10 GHz, no message
    dialog.txtStop->setText("15M");
    dialog.txtPoints->setText("5");
    dialog.cmdAccept->click();
  });
  page->cmdSweepSetup->click();
  EXPECT_EQ(std::tuple(session.SweepShown, session.SweepPoints, session.SweepStart, session.SweepFreq[4]),
            std::tuple(1, 5, 1e10, 15e6));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_TRUE(page->cmdTabulate->isEnabled());  // the sweep just ran

  QPushButton* tabulate = page->cmdTabulate;
  WhenModalShows<SweepSetupDialog>([tabulate](SweepSetupDialog& dialog) {
    EXPECT_TRUE(tabulate->isEnabled());
    dialog.txtPoints->setText("7");
    EXPECT_FALSE(tabulate->isEnabled());  // the table no longer matches the boxes
    dialog.close();
  });
  page->cmdSweepSetup->click();
  EXPECT_TRUE(page->cmdTabulate->isEnabled());  // closing redraws, and the sweep ran again
  page->cmdSweep->click();
  EXPECT_EQ(session.SweepShown, 0);
}

// Apply in the Match dialog puts the chosen network into the stages. Snap puts
// its parts on the series chosen per kind, and Apply writes the snapped network
// as one undo step. A snap belongs to its solution: choosing another drops it.
TEST_F(DesignPageTest, MatchDialogSnapsTheChosenNetworkAsOneStep) {
  session.Value[0][1] = 25;
  session.Value[0][2] = 80;
  SessionHistory history(session);
  const NetworkState started = NetworkStateOf(session);
  QString parts;
  WhenModalShows<MatchDialog>([&parts](MatchDialog& dialog) {
    dialog.cboKind->setCurrentIndex(1);  // L networks
    dialog.cmdCompute->click();
    ASSERT_EQ(dialog.lstSolutions->rowCount(), 4);
    parts = dialog.lstSolutions->item(3, 1)->text();
    dialog.series->cboCapacitorSeries->setCurrentText("E6");
    dialog.series->cmdSnap->click();
    dialog.WaitForSnap();
    EXPECT_TRUE(dialog.lblSnap->text().contains("snapped")) << dialog.lblSnap->text().toStdString();
    dialog.lstSolutions->selectRow(3);
    EXPECT_TRUE(dialog.lblSnap->text().isEmpty());
    dialog.series->cmdSnap->click();
    dialog.WaitForSnap();
    dialog.cmdApply->click();
  });
  QApplication::setActiveWindow(page.get());
  QTest::keyClick(page.get(), Qt::Key_M, Qt::ControlModifier);
  ASSERT_EQ(history.Stack().count(), 1);
  EXPECT_EQ(history.Stack().undoText(), "Match applied (L, 2 parts), snapped");
  EXPECT_TRUE(parts.startsWith(PartName(session.ElementType[1])) &&
              parts.contains(QString("; ") + PartName(session.ElementType[2])));
  EXPECT_EQ(session.ElementType[3], Empty);
  for (int s = 1; s <= 2; ++s) {
    const bool capacitor = session.ElementType[s] == SeriesCapacitor || session.ElementType[s] == ShuntCapacitor;
    const double value = session.Value[s][1];
    EXPECT_EQ(NeighboursOf(value, capacitor ? ESeries::E6 : ESeries::E12).below, value) << s;
  }
  history.Undo();
  EXPECT_EQ(NetworkStateOf(session), started);
}

// The Optimise dialog searches off the window's thread and applies its result;
// Snap puts the stages that are not free on the chosen series and re-tunes the
// free ones, and Apply writes both, named as one undo step.
TEST_F(AnalysisPageTest, OptimiseDialogTunesTheFreeStagesAndSnapsTheLockedOnes) {
  const auto searchAndApply = [](OptimiseDialog& dialog, QPushButton* search) {
    search->click();
    dialog.WaitForSearch();
    ASSERT_TRUE(dialog.cmdApply->isEnabled()) << dialog.lblWorst->text().toStdString();
    dialog.cmdApply->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
  };
  session.Value[1][1] = 300e-12;  // the series capacitor, far from resonating the load
  OptimiseDialog tune(session);
  tune.optWorking->setChecked(true);
  searchAndApply(tune, tune.cmdStart);
  EXPECT_TRUE(tune.lblWorst->text().startsWith("Worst VSWR"));
  EXPECT_NE(session.Value[1][1], 300e-12);

  session = testing::WithStages(session, {{SeriesCapacitor, {0, 123e-12, 1000}}, {ShuntInductor, {0, 1e-6, 100}}});
  OptimiseDialog snap(session);
  snap.chkStage[0]->setChecked(false);
  snap.series->cboCapacitorSeries->setCurrentText("E12");
  searchAndApply(snap, snap.series->cmdSnap);
  EXPECT_TRUE(snap.lblWorst->text().contains("snapped")) << snap.lblWorst->text().toStdString();
  EXPECT_EQ(snap.AppliedStep(), "Snapped to standard values");
  EXPECT_EQ(NeighboursOf(session.Value[1][1], ESeries::E12).below, session.Value[1][1]);
  EXPECT_NE(session.Value[2][1], 1e-6);
  session.ElementType[3] = TwoPort;  // a block has no value to tune
  EXPECT_FALSE(OptimiseDialog(session).chkStage[2]->isEnabled());
}

// The menus and keys reach what the buttons do, the hidden commands included;
// the status line reads the match at the working frequency.
TEST_F(DesignPageTest, MenusAndKeysReachTheCommandsAndTheStatusLineReadsTheMatch) {
  QApplication::setActiveWindow(page.get());
  QMenuBar* menus = page->findChild<QMenuBar*>();
  ASSERT_NE(menus, nullptr);
  auto item = [menus](const QString& text) -> QAction* {
    for (QAction* action : menus->findChildren<QAction*>()) {
      if (action->text().startsWith(text)) return action;
    }
    return nullptr;
  };
  EXPECT_EQ(item("Get net")->text(), "Get net\tCtrl+O");
  EXPECT_FALSE(item("Print")->isEnabled());  // the Analysis page prints
  session = testing::WithStages(session, {{SeriesCapacitor, {0, 100e-12, 1000}}});
  page->txtFrequency->setText("14M");
  EXPECT_EQ(page->StatusLine()->text().toStdString(),
            "Input 50.1137 -j113.682 ohms    |Gamma| 0.7505 at -41.3 deg    VSWR 7.015    Return loss 2.49 dB    at 14 MHz");
  WriteFile("band.RJX", "14M, 40, -5\r\n14.1M, 45, 0\r\n14.2M, 50, 5\r\n");
  dialogs.fileNames.push_back("band.RJX");
  QTest::keyClick(page.get(), Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(dialogs.chooserTitles.back(), "Get frequencies and load data");
  EXPECT_EQ(std::tuple(session.LoadSource, session.Frequency), std::tuple(2, 14.1e6));
  EXPECT_EQ(page->txtFrequency->text(), " 14.1 M");  // the page drawn again
  dialogs.fileNames.push_back("deck");
  QTest::keyClick(page.get(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(ReadFile("deck.cir").ends_with(".end\n"));
  dialogs.fileNames.push_back("saved");
  QTest::keyClick(page.get(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(std::filesystem::exists("saved.SSF"));
  WriteNetworkFile(testing::FiveStageNetwork(), dialogs, "tuner");
  dialogs.fileNames.push_back("tuner.SSF");
  QTest::keyClick(page.get(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(page->windowTitle(), "Kalvex 2.12 - Design tuner.SSF");  // the caption names the file
  item("Get net")->trigger();  // cancelled: the network stays
  EXPECT_EQ(std::tuple(dialogs.chooserTitles.back(), session.ElementType[1], session.FileName),
            std::tuple("Read Kalvex network file", SeriesInductor, "tuner.SSF"));
  QTest::keyClick(page.get(), Qt::Key_F1);
  EXPECT_NE(dialogs.messages.back().text.find("Write LTspice"), std::string::npos);
}

// The chart keeps its proportions whatever the window's: the page is drawn in
// the screen's proportions with one scale, so the face's width over its height
// is the aspect corrected for the screen, at every window shape. Its background
// is painted once and shown again until the view changes (zoom, drag, aspect,
// grid type, size), not by tuning; shown from the cache it gives the same
// pixels as painted afresh. Ctrl+E exports the chart as shown.
TEST_F(AnalysisPageTest, TheChartKeepsItsShapeAndPaintsItsBackgroundOnlyWhenItChanges) {
  const QSizeF screen = QGuiApplication::primaryScreen()->availableGeometry().size();
  const double expected = session.ChartAspect * (screen.width() / screen.height()) / (12000.0 / 9000);
  for (const QSize size : {QSize(800, 600), QSize(1500, 600), QSize(500, 900)}) {
    page->resize(size);
    QImage image(size, QImage::Format_RGB32);
    page->render(&image, {}, {}, QWidget::DrawWindowBackground);
    const auto white = [](QRgb pixel) { return pixel == qRgb(255, 255, 255); };
    const QRect face = testing::BoxOf(image, white, size.height() / 4);  // the chart's face, below the strip
    EXPECT_NEAR(double(face.width()) / face.height(), expected, 0.03) << size.width() << "x" << size.height();
  }
  page->resize(900, 700);
  QApplication::setActiveWindow(page.get());
  const auto paint = [this] { return page->grab().toImage(); };
  paint();
  testing::ClickPage(*page, (session.PartRightEdge[0] + session.PartRightEdge[1]) / 2.0, 800);
  page->tuning->topSteps[3]->click();
  int painted = page->BackgroundPaints();
  const QImage cached = paint();
  EXPECT_EQ(page->BackgroundPaints(), painted);  // tuning leaves the background
  page->CacheBackground(false);
  EXPECT_EQ(paint(), cached);
  page->CacheBackground(true);
  const std::vector<std::pair<const char*, std::function<void()>>> changes = {
      {"zoom", [this] { QTest::keyClick(page.get(), Qt::Key_Plus); }},
      {"drag", [this] {
         QTest::mousePress(page.get(), Qt::RightButton, {}, page->Frame().center().toPoint());
         QTest::mouseMove(page.get(), page->Frame().center().toPoint() + QPoint(40, 20));
       }},
      {"aspect", [this] { page->txtAspect->setText("0.9"); QTest::keyClick(page->txtAspect, Qt::Key_Return); }},
      {"grid type", [this] { page->cmdDisplay->click(); }},
      {"size", [this] { page->resize(800, 650); }}};
  for (const auto& [what, change] : changes) {
    change();
    paint();
    EXPECT_EQ(page->BackgroundPaints(), painted + 1) << what;
    painted = page->BackgroundPaints();
  }
  EXPECT_FLOAT_EQ(session.ChartZoom, std::sqrt(2.0f));
  EXPECT_TRUE(page->cmdOut->isEnabled());
  dialogs.fileNames.push_back("chart.png");
  QTest::keyClick(page.get(), Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(QImage("chart.png").size(), page->Frame().size().toSize());  // the page without margins
}

}  // namespace
}  // namespace kalvex
