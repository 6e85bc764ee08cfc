#include <gtest/gtest.h>

#include <QFontInfo>
#include <QGroupBox>
#include <QImage>
#include <QMenuBar>
#include <QPrinter>
#include <functional>
#include <memory>

#include "analysis/tabulate.h"
#include "platform/drawing_extent.h"
#include "print/paper.h"
#include "print/print_chart.h"
#include "support/five_stage_network.h"
#include "support/image_box.h"
#include "support/pages_in_folder.h"
#include "ui/analysis_page.h"
#include "ui/design_page.h"
#include "ui/match_dialog.h"
#include "ui/options_page.h"
#include "ui/page_renderer.h"
#include "ui/qt_print_job.h"
#include "ui/sweep_setup_dialog.h"
#include "ui/tabulate_page.h"

namespace kalvex {
namespace {

// The pages on the five-stage network at 14.2 MHz, swept over 13..15 MHz.
class LayoutTest : public testing::PagesInFolder {
 protected:
  void SetUp() override {
    PagesInFolder::SetUp();
    session = testing::FiveStageNetwork();
    testing::SweepOver(session, 13e6, 15e6, 11);
  }
};

std::string Named(const QWidget* control) {
  QString text = control->property("text").toString();
  if (text.isEmpty()) text = control->property("title").toString();
  return std::string(control->metaObject()->className()) + " \"" + text.toStdString() + "\"";
}

// Every control of a page, and of each frame on it, lies whole inside its
// parent: a control in a frame is placed in the frame's own units.
TEST_F(LayoutTest, ControlsLieInsideTheirParentsAtEveryFrameSize) {
  const std::pair<const char*, std::function<QWidget*()>> pages[] = {
      {"Design", [this] { return new DesignPage(session, dialogs); }},
      {"Analysis", [this] { return new AnalysisPage(session, dialogs); }},
      {"options", [this] { return new OptionsPage(session, dialogs); }},
      {"Tabulate", [this] { return new TabulatePage(session, dialogs); }}};
  for (const auto& [name, make] : pages) {
    const std::unique_ptr<QWidget> page(make());
    page->setWindowState(Qt::WindowNoState);
    page->show();
    for (const QSize size : {QSize(1920, 1050), QSize(1366, 738), QSize(700, 500)}) {
      page->resize(size);
      int checked = 0;
      for (const QWidget* control : page->findChildren<QWidget*>()) {
        const QWidget* parent = control->parentWidget();
        if (control->isWindow() || (qobject_cast<const Page*>(parent) == nullptr &&
                                    qobject_cast<const QGroupBox*>(parent) == nullptr)) {
          continue;
        }
        ++checked;
        EXPECT_TRUE(parent->rect().contains(control->geometry()))
            << name << " at " << size.width() << "x" << size.height() << ": " << Named(control);
      }
      EXPECT_GT(checked, 5) << name;
    }
  }
}

// The Tabulate page lists the sweep's rows and writes them to a file. It is
// laid out as the other pages: its list takes the share of the page its place
// gives it, below the menu bar, at every window size.
TEST_F(LayoutTest, TabulatePageListsTheSweepAndFillsItsFrame) {
  Session copy = session;
  const std::vector<std::string> rows = TabulateSweep(copy);
  TabulatePage table(session, dialogs);
  EXPECT_EQ(table.windowTitle(), "Kalvex 2.12 Tabulated output ");
  ASSERT_EQ(table.lstTabulatedOutput->count(), 11);
  for (int k = 0; k < 11; ++k) EXPECT_EQ(table.lstTabulatedOutput->item(k)->text().toStdString(), rows[k]);
  dialogs.fileNames.push_back("sweep");
  table.cmdFile->click();
  EXPECT_EQ(dialogs.chooserTitles.back(), "Write Kalvex data file");
  EXPECT_TRUE(std::filesystem::exists("sweep.DAT"));
  table.setWindowState(Qt::WindowNoState);
  table.show();
  int font = 1000;  // the buttons' text grows and shrinks with the page
  for (const QSize size : {QSize(1920, 1050), QSize(1366, 738)}) {
    table.resize(size);
    const QRectF frame = table.sheet->Frame();
    const QRect list = table.lstTabulatedOutput->geometry();
    EXPECT_NEAR(list.width() / frame.width(), 8500.0 / 12000, 0.01);
    EXPECT_NEAR(list.height() / frame.height(), 5000.0 / 9000, 0.01);
    EXPECT_GE(table.lblTitle->y(), table.sheet->findChild<QMenuBar*>()->geometry().bottom());
    EXPECT_GT(table.cmdExit->y(), list.bottom());
    EXPECT_LT(table.cmdExit->font().pixelSize(), font);
    font = table.cmdExit->font().pixelSize();
  }
}

// The status line takes the page's font and keeps every figure whole: the
// full line where it fits, the brief one in a narrower window, wrapped
// between figures in a narrow one; an exact match reads 0, "matched".
TEST_F(LayoutTest, StatusLineKeepsItsFiguresWholeAtEveryWidth) {
  struct Case {
    int width;
    double loadX;  // of the load alone, 50 ohms resistive
    std::vector<const char*> shown;
    int lines;  // at least
  };
  const std::vector<const char*> figures = {"50 +j30 ohms", "|Gamma| 0.2873 at 73.3 deg", "VSWR 1.806", "10.83 dB",
                                            "at 14.2 MHz"};
  for (const Case& c : {Case{1900, 30, figures, 1}, Case{450, 30, figures, 1}, Case{220, 30, figures, 2},
                        Case{1900, 0, {"|Gamma| 0, matched", "VSWR 1", "Return loss > 120 dB"}, 1}}) {
    session = testing::SessionOnLoad(50, c.loadX, 14.2e6);
    DesignPage page(session, dialogs);
    page.show();
    page.resize(c.width, 700);
    QString text = page.StatusLine()->text();
    text.replace(QChar(0x00A0), ' ');
    for (const char* figure : c.shown) EXPECT_TRUE(text.contains(figure)) << c.width << ": " << text.toStdString();
    const int lineHeight = page.StatusLine()->fontMetrics().lineSpacing();
    EXPECT_GE(page.StatusLine()->height(), page.StatusLine()->heightForWidth(c.width)) << c.width;
    EXPECT_GE(page.StatusLine()->height(), c.lines * lineHeight) << c.width;
    EXPECT_LE(page.StatusLine()->geometry().bottom(), page.height()) << c.width;
    EXPECT_LE(page.Frame().bottom(), page.StatusLine()->y() + 1) << c.width;
    EXPECT_EQ(page.StatusLine()->font().pixelSize(), page.findChild<QMenuBar*>()->font().pixelSize()) << c.width;
  }
}

// The printed chart page holds the whole strip, the generator at its right
// end included, inside the printable area of A4 and Letter: its drawing
// measured, and its ink on a page of the printable area's shape.
TEST_F(LayoutTest, PrintedChartPageLiesInsideThePrintableArea) {
  session.Value[1] = {0, 1.234567e-6, 200};
  session.Value[5] = {0, 220.4567e-12, 1000};
  session.ArcsMode = 2;
  DisplayList page;
  DrawChartPage(session, page, dialogs.LocalDateTime());
  const PageSize paper = ChartPaperFor(page);
  const Box extent = DrawingExtent(page);
  EXPECT_GT(extent.right, kChartPaper.width);  // the strip of this network is wider than the page
  for (const QPageSize::PageSizeId size : {QPageSize::A4, QPageSize::Letter}) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageSize(QPageSize(size));
    const QSizeF printable = printer.pageRect(QPrinter::DevicePixel).size();
    const QRectF frame = QtPrintJob::PrintedFrame(printer, paper);
    const double scale = frame.width() / paper.width;
    EXPECT_NEAR(frame.height(), paper.height * scale, 1e-6 * frame.height());  // one scale across and down
    const QRectF drawn(frame.x() + extent.left * scale, frame.y() + extent.top * scale,
                       (extent.right - extent.left) * scale, (extent.bottom - extent.top) * scale);
    EXPECT_TRUE(QRectF(QPointF(0, 0), printable).contains(drawn)) << size;

    const int height = static_cast<int>(900 * printable.height() / printable.width());
    ASSERT_EQ(RenderToFile(page, paper, 900, height, "page.png", 0, {printable.width(), printable.height()}), "");
    const QImage image("page.png");
    const QRect ink = testing::BoxOf(image, [](QRgb pixel) { return qGray(pixel) < 160; });
    EXPECT_TRUE(image.rect().adjusted(2, 2, -2, -2).contains(ink)) << size << ": ink right edge " << ink.right();
  }
}

// The page's menu bar grows with the page. A dialog over a page on a large
// screen reads as the menu bar does, and opens larger by as much; on a smaller one it keeps the system's font.
// A dialog placed by hand grows with its text: every label is whole.
// Each row of the solutions is as tall as its text wrapped at the width the
// dialog opens with. The Match dialog names what it works on and asks before
// the Design page's limits change a solution's value, naming the part and
// what it would get.
TEST_F(LayoutTest, MatchDialogReadsAsThePageAndAsksBeforeLimitsChangeAValue) {
  const int system = QFontInfo(QFont()).pixelSize();
  std::vector<int> menus;
  for (const QSize screen : {QSize(1366, 768), QSize(2560, 1440)}) {
    SCOPED_TRACE(screen.width());
    AnalysisPage page(session, dialogs);
    page.resize(screen);
    page.show();
    const int menu = menus.emplace_back(QFontInfo(page.findChild<QMenuBar*>()->font()).pixelSize());
    MatchDialog dialog(session, dialogs, &page);
    const int pixels = QFontInfo(dialog.lstSolutions->font()).pixelSize();
    EXPECT_EQ(pixels, std::max(system, menu));
    EXPECT_NEAR(dialog.width(), 16000 / 15 * double(pixels) / system, 1);
    dialog.show();
    QCoreApplication::processEvents();
    QTableWidget& table = *dialog.lstSolutions;
    std::vector<int> heights;
    for (int row = 0; row < table.rowCount(); ++row) heights.push_back(table.rowHeight(row));
    table.resizeRowsToContents();
    for (int row = 0; row < table.rowCount(); ++row) EXPECT_EQ(heights[row], table.rowHeight(row)) << row;
    EXPECT_GT(table.rowCount(), 0);

    SweepSetupDialog sweep(session, dialogs, [] {}, [](bool) {}, &page);
    EXPECT_EQ(QFontInfo(sweep.font()).pixelSize(), pixels);
    for (const QLabel* label : sweep.findChildren<QLabel*>()) {
      if (label->wordWrap()) continue;
      EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
      EXPECT_TRUE(sweep.rect().contains(label->geometry())) << label->text().toStdString();
    }
  }
  EXPECT_GT(menus[1], menus[0] + 4);

  session = testing::SessionOnLoad(50, 20000, 14.2e6);  // cancelled by a series capacitor below the page's 1 pF
  testing::SweepOver(session, 13e6, 15e6, 11);
  MatchDialog dialog(session, dialogs);
  const QString heading = dialog.lblWorksOn->text();
  for (const char* part : {"Load 50 +j20000 ohms at 14.2 MHz", "system impedance 50 ohms", "13 MHz to 15 MHz"}) {
    EXPECT_TRUE(heading.contains(part)) << heading.toStdString();
  }
  int limited = -1;
  for (int row = 0; row < dialog.lstSolutions->rowCount() && limited < 0; ++row) {
    if (dialog.lstSolutions->item(row, 1)->text().contains("outside")) limited = row;
    EXPECT_EQ(dialog.lstSolutions->item(row, 1)->toolTip(), dialog.lstSolutions->item(row, 1)->text());
  }
  ASSERT_GE(limited, 0);
  dialog.lstSolutions->selectRow(limited);
  dialogs.answers.push_back(MessageAnswer::No);
  dialog.cmdApply->click();
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].text.find("stage 1, "), std::string::npos) << dialogs.messages[0].text;
  EXPECT_NE(dialogs.messages[0].text.find(" would become "), std::string::npos);
  EXPECT_EQ(session.ElementType[1], Empty);  // refused: nothing applied
  dialogs.answers.push_back(MessageAnswer::Yes);
  dialog.cmdApply->click();
  EXPECT_NE(session.ElementType[1], Empty);
}

}  // namespace
}  // namespace kalvex
