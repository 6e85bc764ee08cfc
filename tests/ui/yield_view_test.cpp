#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "matching/yield.h"
#include "model/number_text.h"
#include "support/drawing_queries.h"
#include "support/five_stage_network.h"
#include "support/pages_in_folder.h"
#include "ui/band_window.h"

namespace kalvex {
namespace {

// The band window's Yield view over the five-stage network swept across
// 13.5 to 15 MHz, with few samples to keep the tests quick.
class YieldViewTest : public testing::PagesInFolder {
 protected:
  void SetUp() override {
    PagesInFolder::SetUp();
    session = testing::FiveStageNetworkSwept(41);
    BandWindow::YieldSettings() = {};
    window = BandWindow::Show(session, dialogs);
    QApplication::setActiveWindow(window);
    Enter(window->txtSamples, "2000");
    Enter(window->txtSeed, "7");
    QTest::keyClick(window, Qt::Key_Y);
    window->WaitForYield();
  }
  void TearDown() override {
    window->close();
    PagesInFolder::TearDown();
  }
  static void Enter(QLineEdit* box, const QString& text) {
    box->setText(text);
    emit box->editingFinished();
  }
  void EditTolerance(int row, const QString& text) {
    window->tblTolerances->item(row, 2)->setText(text);
    window->WaitForYield();
  }

  BandWindow* window = nullptr;
};

// The view shows the core's figures for the seed and samples its boxes hold,
// on the network as it stands: a change while a computation runs stops it,
// and the figures follow the newest network.
TEST_F(YieldViewTest, ShowsTheCoresFiguresForItsSeed) {
  const auto figure = [](const YieldResult& result) {
    return "Nominal worst VSWR " + FormattedNumber("%.4g", result.nominalWorst);
  };
  for (const double inductor : {1.2e-6, 1.5e-6}) {
    session.Value[1][1] = inductor;
    BandWindow::RefreshOpen();
    BandWindow::RefreshOpen();
    window->WaitForYield();
    const YieldRequest& request = window->YieldComputedWith();
    ASSERT_EQ(std::tuple(request.samples, request.seed), std::tuple(2000, 7u));
    const YieldResult core = ComputeYield(session, request);
    const YieldResult& shown = window->Yield();
    EXPECT_EQ(std::tuple(shown.yield, shown.nominalWorst), std::tuple(core.yield, core.nominalWorst)) << inductor;
    ASSERT_EQ(shown.envelope.size(), core.envelope.size());
    for (std::size_t k = 0; k < core.envelope.size(); ++k) {
      EXPECT_EQ(std::tuple(shown.envelope[k].low, shown.envelope[k].high),
                std::tuple(core.envelope[k].low, core.envelope[k].high)) << k;
    }
    const std::string yield = "Yield " + FormattedNumber("%.1f", 100 * core.yield) + " % at VSWR 2 or better";
    EXPECT_NE(testing::FindText(window->Drawing(), yield), nullptr) << yield;
    EXPECT_NE(testing::FindText(window->Drawing(), figure(core)), nullptr) << figure(core);
  }
  // Printed during a computation, the page waits for it and shows its yield.
  session.Value[1][1] = 0.9e-6;
  BandWindow::RefreshOpen();
  QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
  const YieldResult core = ComputeYield(session, window->YieldComputedWith());
  EXPECT_NE(testing::FindText(dialogs.printed, figure(core)), nullptr) << figure(core);
}

// Each part's tolerance as entered reaches the computation: a part of 0 %
// drops out of the ranking, and with every part exact the envelope closes on
// the nominal curve. A tolerance that does not read is refused.
TEST_F(YieldViewTest, TolerancesAndSettingsReachTheComputation) {
  ASSERT_EQ(window->tblTolerances->rowCount(), 5);
  EditTolerance(1, "10");  // stage 2's capacitor
  EditTolerance(0, "0");   // stage 1's inductor
  EditTolerance(3, "150");
  const auto ranked = [this](int stage) {  // the part's tolerance in the ranking, -1 when it is not there
    for (const PartSpread& p : window->Yield().parts) {
      if (p.part.stage == stage) return p.tolerance;
    }
    return -1.0;
  };
  EXPECT_EQ(std::tuple(ranked(1), ranked(2), ranked(4)), std::tuple(-1.0, 10.0, 2.0));
  EXPECT_EQ(window->tblTolerances->item(3, 2)->text(), "2");

  for (int row = 1; row < 5; ++row) EditTolerance(row, "0");
  EXPECT_TRUE(window->Yield().parts.empty());
  for (const YieldEnvelopePoint& p : window->Yield().envelope) {  // kept to seven digits
    EXPECT_FLOAT_EQ(p.low, p.nominal);
    EXPECT_FLOAT_EQ(p.high, p.nominal);
  }

  // The boxes take what reads as a setting and write it back as taken; what
  // does not read leaves the setting as it was.
  const struct {
    QLineEdit* box;
    const char* typed;
    const char* shown;
  } cases[] = {{window->txtSamples, "10k", "10000"}, {window->txtSamples, "5e6", "100000"},
               {window->txtSamples, "none", "100000"}, {window->txtGoal, "1.5", "1.5"},
               {window->txtGoal, "0.9", "1.5"}, {window->txtSeed, "-3", "7"},
               {window->txtSeed, "18446744073709551615", "18446744073709551615"}};
  for (const auto& c : cases) {
    Enter(c.box, c.typed);
    EXPECT_EQ(c.box->text(), c.shown) << c.typed;
  }
  window->WaitForYield();
  EXPECT_EQ(window->YieldComputedWith().samples, 100'000);
  EXPECT_EQ(window->YieldComputedWith().goal, 1.5);
}

}  // namespace
}  // namespace kalvex
