#include "analysis/band.h"
#include "analysis/band_plot.h"
#include "analysis/redraw.h"
#include "chart/analysis_view.h"
#include "chart/chart_view.h"
#include "cli.h"
#include "commands.h"
#include "console_dialogs.h"
#include "design/schematic.h"
#include "design/symbols.h"
#include "design/welcome_pictures.h"
#include "drawing_requests.h"
#include "ui/page_renderer.h"

namespace kalvex {

int RunRenderCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                     std::ostream& err) {
  Session session;
  RenderRequest request;
  ConsoleDialogs dialogs(err);
  if (const auto stop = PrepareRender(command, words, out, err, dialogs, session, request)) return *stop;

  const float coilArcRadius = CoilArcRadiusFor(request.screen.width, request.screen.height);
  DisplayList drawing;
  PageSize pageSize = kDesignPage;
  if (request.page == "welcome") {
    DrawWelcomePage(drawing, session.ChartAspect, coilArcRadius);
  } else if (request.page == "design") {
    DrawDesignPage(session, drawing, coilArcRadius);
  } else if (request.page == "band") {
    if (session.LoadSource != 2) session.LoadSource = 1;
    DrawBandPlot(ComputeBandFigures(session),
                 request.plot == "rl"      ? BandQuantity::ReturnLoss
                 : request.plot == "gamma" ? BandQuantity::Gamma
                                           : BandQuantity::VSWR,
                 drawing);
    // The plot keeps its own proportions, whatever the screen.
    const std::string failure =
        RenderToFile(drawing, kBandPage, request.size.width, request.size.height, request.output);
    if (failure.empty()) return kExitOk;
    err << "kalvex-cli render: " << failure << "\n";
    return kExitFailed;
  } else {
    if (request.aspect) session.ChartAspect = static_cast<float>(*request.aspect);
    session.LoadSource = session.LoadSource == 0 ? 1 : session.LoadSource;
    LoadAnalysisView(session);
    RefreshAnalysis(session, drawing);
    pageSize = kAnalysisPage;
  }
  const std::string failure = RenderToFile(
      drawing, pageSize, request.size.width, request.size.height, request.output, 0,
      {static_cast<double>(request.screen.width), static_cast<double>(request.screen.height)});
  if (!failure.empty()) {
    err << "kalvex-cli render: " << failure << "\n";
    return kExitFailed;
  }
  return kExitOk;
}

}  // namespace kalvex
