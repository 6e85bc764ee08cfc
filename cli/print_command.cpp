#include <algorithm>
#include <cctype>
#include <cmath>

#include "analysis/sweep.h"
#include "chart/analysis_view.h"
#include "cli.h"
#include "commands.h"
#include "console_dialogs.h"
#include "drawing_requests.h"
#include "print/paper.h"
#include "print/print_chart.h"
#include "print/print_table.h"
#include "ui/page_renderer.h"

namespace kalvex {
namespace {

// A printer's pixel, in the printed pages' units: a six-hundredth of an inch
// of the 8-inch wide printable area.
constexpr double kPaperUnitsPerWidth = 2.4;

// The file's size: a PDF page of 8 inches across in points, an image 1200
// pixels across; the height in the page's proportion.
std::pair<int, int> FileSizeOf(PageSize page, const std::string& path) {
  const bool pdf = path.size() >= 4 && std::equal(path.end() - 4, path.end(), ".pdf",
                                                  [](char a, char b) { return std::tolower(a) == b; });
  const double width = pdf ? 576 : 1200;
  return {static_cast<int>(width), static_cast<int>(std::lround(width * page.height / page.width))};
}

}  // namespace

int RunPrintCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err) {
  Session session;
  PrintRequest request;
  ConsoleDialogs dialogs(err);
  if (const auto stop = PreparePrint(command, words, out, err, dialogs, session, request)) return *stop;
  DisplayList pages;
  PageSize paper = kChartPaper;
  if (request.table) {
    // The table prints what the Tabulate page computed: the sweep, run as it does.
    RunSweepPoints(session, SweepUse::Table);
    const std::string caution = TableCautionText(session.SweepPoints);
    if (!caution.empty()) err << "Caution: " << caution << "\n(answered Yes)\n";
    DrawTablePages(session, pages, dialogs.LocalDateTime());
    paper = kTablePaper;
  } else {
    LoadAnalysisView(session);  // the chart as the Analysis page would print it
    DrawChartPage(session, pages, dialogs.LocalDateTime());
    paper = ChartPaperFor(pages);
  }
  const auto [width, height] = FileSizeOf(paper, request.output);
  const std::string failure =
      RenderToFile(pages, paper, width, height, request.output, kPaperUnitsPerWidth);
  if (!failure.empty()) {
    err << "kalvex-cli print: " << failure << "\n";
    return kExitFailed;
  }
  return kExitOk;
}

}  // namespace kalvex
