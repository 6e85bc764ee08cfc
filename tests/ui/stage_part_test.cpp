#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>
#include <functional>

#include "files/cable_catalogue.h"
#include "files/text_file.h"
#include "support/pages_in_folder.h"
#include "support/session_setup.h"
#include "ui/cable_form.h"
#include "ui/design_page.h"
#include "ui/session_history.h"
#include "ui/stage_part_dialog.h"
#include "ui/transformer_form.h"
#include "ui/two_port_dialog.h"

namespace kalvex {
namespace {

using Slots = std::array<double, kSlotCount>;
const Slots kRG58In100Feet = {0, 30.48, 50, 0.66, 1.3807, 0.022686};

class StagePartTest : public testing::PagesInFolder {
 protected:
  void SetUp() override {
    PagesInFolder::SetUp();
    Restart();
  }
  void Restart() {
    InitialiseSession(session);
    session.Cables = ParseCableCatalogue(ReadTextFile(KALVEX_CABLES_FILE).value_or(""));
    session = testing::WithStages(session, {{SeriesCapacitor, {0, 100e-12, 1000}}});
  }
  static CableForm& Cable(StagePartDialog& dialog) { return *static_cast<CableForm*>(dialog.forms->widget(0)); }
  static TransformerForm& Windings(StagePartDialog& dialog) {
    return *static_cast<TransformerForm*>(dialog.forms->widget(1));
  }
};

// What is entered goes into the stage chosen (the page's, the first free one
// without it, or one picked in the dialog) within the limits, each value
// reset with its message, and names the undo step.
TEST_F(StagePartTest, TheDialogPutsThePartIntoTheStage) {
  struct Case {
    int selected;
    std::function<void(StagePartDialog&)> enter;
    int stage;
    int16_t type;
    Slots values;
    std::vector<std::string> messages;
  };
  const Case cases[] = {
      {3, [](StagePartDialog& d) {
         Cable(d).cboCable->setCurrentText("RG-58");
         Cable(d).cboLengthUnit->setCurrentText("ft");
         Cable(d).txtLength->setText("100");
       }, 3, CoaxialCable, kRG58In100Feet, {}},
      {kLastStage + 1, [](StagePartDialog& d) {
         Cable(d).cboCable->setCurrentText("By its numbers");
         for (const auto& [box, text] : {std::pair{Cable(d).txtLength, "12"}, {Cable(d).txtImpedance, "-75"},
                                         {Cable(d).txtVelocityFactor, "1.2"}, {Cable(d).txtK1, "0.5"},
                                         {Cable(d).txtK2, "10m"}}) {
           box->setText(text);
         }
       }, 2, CoaxialCable, {0, 12, 75, 1, 0.5, 0.01}, {"Velocity factor has been reset to the maximum allowed (1)."}},
      {2, [](StagePartDialog& d) {
         d.cboStage->setCurrentIndex(4);
         d.cboKind->setCurrentText("Transformer");
         Windings(d).cboRatio->setCurrentText("1:4");
         Windings(d).txtMagnetising->setText("2.5m");
       }, 5, Transformer, {0, 0.25, 2.5e-3}, {}},
      {1, [](StagePartDialog& d) {
         d.cboKind->setCurrentText("Transformer");
         Windings(d).cboRatio->setCurrentIndex(4);
         Windings(d).txtLeakage->setText("0");
       }, 1, Transformer, {0, 49}, {}},
  };
  for (const Case& c : cases) {
    Restart();
    session.ElementType[2] = InsertPlaceholder;  // free for a part, as an empty stage is
    dialogs.messages.clear();
    StagePartDialog dialog(session, dialogs, c.selected);
    c.enter(dialog);
    dialog.cmdApply->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(std::tuple(session.ElementType[c.stage], session.Value[c.stage]), std::tuple(c.type, c.values));
    EXPECT_EQ(dialogs.MessageTexts(), c.messages);
    EXPECT_EQ(dialog.AppliedStep(),
              QString("%1 in stage %2").arg(c.type == CoaxialCable ? "Cable" : "Transformer").arg(c.stage));
  }
}

// Ctrl+Shift+C puts a cable in as one step that undo and redo take back and
// give again whole; a click on the cable opens the dialog on it, showing its
// catalogue cable and length, and a cancel leaves the stage selected.
// "Two-port from file..." goes on to the block's dialog for the stage chosen,
// which puts the block in with the placement chosen; a file that cannot be a
// block is named and the dialog stays open with the network as it was.
TEST_F(StagePartTest, TheDesignPageOpensTheDialogsAndRecordsOneStepEach) {
  SessionHistory history(session);
  DesignPage page(session, dialogs);
  page.show();
  QApplication::setActiveWindow(&page);
  testing::WhenModalShows<StagePartDialog>([](StagePartDialog& dialog) {
    EXPECT_EQ(dialog.cboStage->currentIndex(), 1);  // the first stage without a part
    Cable(dialog).cboCable->setCurrentText("RG-58");
    Cable(dialog).txtLength->setText("30.48");
    dialog.cmdApply->click();
  });
  QTest::keyClick(&page, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(history.Stack().undoText(), "Cable in stage 2");
  EXPECT_EQ(history.Stack().count(), 1);
  history.Undo();
  EXPECT_EQ(std::tuple(session.ElementType[2], session.Value[2]), std::tuple(Empty, Slots{}));
  history.Redo();
  EXPECT_EQ(std::tuple(session.ElementType[2], session.Value[2]), std::tuple(CoaxialCable, kRG58In100Feet));

  WriteFile("bad.s2p", "# MHz S RI R 50\n1 0 0 1\n");
  WriteFile("part.s2p", "# MHz S RI R 50\n1 0.1 0 0.9 0 0.9 0 0.1 0\n30 0.1 0 0.9 0 0.9 0 0.1 0\n");
  testing::WhenModalShows<StagePartDialog>([this](StagePartDialog& dialog) {
    dialog.cboStage->setCurrentIndex(3);
    testing::WhenModalShows<TwoPortDialog>([this](TwoPortDialog& block) {
      EXPECT_EQ(block.spnStage->value(), 4);
      EXPECT_FALSE(block.optPort2Shorted->isEnabled());
      block.optShunt->setChecked(true);
      block.optPort2Shorted->setChecked(true);
      block.chkSwapPorts->setChecked(true);
      QPushButton* ok = block.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
      block.txtFile->setText("bad.s2p");
      ok->click();
      EXPECT_TRUE(block.isVisible() && session.ElementType[4] == Empty);
      block.txtFile->setText("part.s2p");
      ok->click();
    });
    dialog.cmdTwoPort->click();
  });
  QApplication::setActiveWindow(&page);
  QTest::keyClick(&page, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].text.find("bad.s2p cannot be a two-port block"), std::string::npos);
  EXPECT_EQ(history.Stack().undoText(), "Two-port in stage 4");
  EXPECT_EQ(std::tuple(session.ElementType[4], session.Value[4][1], session.Value[4][2], session.Value[4][3]),
            std::tuple(TwoPort, 3.0, 1.0, 1.0));
  EXPECT_EQ(session.TwoPortBlocks[4].table->Size(), 2u);
  EXPECT_EQ(TwoPortDialog(session, dialogs).spnStage->value(), 3);  // offered unasked: the first empty stage

  testing::WhenModalShows<StagePartDialog>([](StagePartDialog& dialog) {
    EXPECT_EQ(std::tuple(dialog.cboStage->currentIndex(), dialog.cboKind->currentText(),
                         Cable(dialog).cboCable->currentText(), Cable(dialog).txtLength->text()),
              std::tuple(1, QString("Coaxial cable"), QString("RG-58"), QString("30.48")));
    Cable(dialog).cboLengthUnit->setCurrentText("ft");  // the length keeps its measure
    EXPECT_EQ(Cable(dialog).txtLength->text(), "100");
    dialog.cmdCancel->click();
  });
  testing::ClickPage(page, page.Editor().StageX[2] + 300, 1000);
  EXPECT_EQ(std::tuple(page.Editor().EditStage, page.Editor().LibraryArmed), std::tuple(2, 1));
  EXPECT_EQ(history.Stack().count(), 2);
}

}  // namespace
}  // namespace kalvex
