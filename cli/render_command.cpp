#include <memory>
#include <regex>

#include "analysis/band.h"
#include "analysis/band_plot.h"
#include "analysis/redraw.h"
#include "chart/analysis_view.h"
#include "chart/chart_view.h"
#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "session_options.h"
#include "design/schematic.h"
#include "design/symbols.h"
#include "design/welcome_pictures.h"
#include "files/load_data_file.h"
#include "files/network_file.h"
#include "files/startup.h"
#include "ui/page_renderer.h"

#include <cmath>

namespace kalvex {
namespace {

// An image of more would take gigabytes of memory to draw.
constexpr int kLargestImage = 16384;

struct PixelSize {
  int width = 0;
  int height = 0;
};

std::optional<PixelSize> SizeOf(const std::string& text) {
  std::smatch match;
  static const std::regex pattern("([0-9]{1,5})x([0-9]{1,5})");
  if (!std::regex_match(text, match, pattern)) return std::nullopt;
  const PixelSize size{std::stoi(match[1]), std::stoi(match[2])};
  if (size.width < 16 || size.height < 16) return std::nullopt;
  if (size.width > kLargestImage || size.height > kLargestImage) return std::nullopt;
  return size;
}

}  // namespace

int RunRenderCommand(const Command& command, const std::vector<std::string>& words, std::ostream&,
              std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(
      words, {"--page", "--size", "--screen", "--grid", "--zoom", "--aspect", "--load", "--start",
              "--stop", "--points", "--plot", "-o"},
      {"--q-arcs", "--vswr-circle", "--sweep"}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() > 1) return UsageError(command, "at most one FILE", err);
  const std::string page = arguments->Option("--page").value_or("");
  if (page != "welcome" && page != "design" && page != "analysis" && page != "band") {
    return UsageError(command, "--page takes welcome, design, analysis or band", err);
  }
  const std::string plot = arguments->Option("--plot").value_or("vswr");
  if (plot != "vswr" && plot != "rl" && plot != "gamma") {
    return UsageError(command, "--plot takes vswr, rl or gamma", err);
  }
  const auto aspect = arguments->Option("--aspect");
  const double aspectValue = aspect ? CliNumber(*aspect).value_or(0) : 0;
  if (aspect && (aspectValue < 0.5 || aspectValue > 1.5)) {
    return UsageError(command, "--aspect takes a factor from 0.5 to 1.5", err);
  }
  const auto output = arguments->Option("-o");
  if (!output) return UsageError(command, "-o OUT is needed", err);
  const auto size = SizeOf(arguments->Option("--size").value_or("1920x1080"));
  if (!size) return UsageError(command, "--size takes WxH in pixels from 16x16 to 16384x16384, such as 1920x1080", err);
  // The screen the page is drawn for: a page fills a screen's available area,
  // and is letterboxed into --size in that screen's proportions.
  const auto screen = SizeOf(arguments->Option("--screen").value_or("1920x1080"));
  if (!screen) return UsageError(command, "--screen takes WxH in pixels, such as 1920x1080", err);

  Session session;
  StartSession(session);
  if (const auto stop = ApplyChartOptions(session, *arguments, command, err)) return *stop;
  ConsoleDialogs dialogs(err);
  if (!arguments->positional.empty() &&
      !ReadNetworkFile(session, dialogs, arguments->positional.front())) {
    return kExitFailed;
  }
  if (const auto stop = ApplySweepOptions(session, dialogs, *arguments, command, err, false)) {
    return *stop;
  }

  const float coilArcRadius = CoilArcRadiusFor(screen->width, screen->height);
  DisplayList drawing;
  PageSize pageSize = kDesignPage;
  if (page == "welcome") {
    DrawWelcomePage(drawing, session.ChartAspect, coilArcRadius);
  } else if (page == "design") {
    DrawDesignPage(session, drawing, coilArcRadius);
  } else if (page == "band") {
    if (session.LoadSource != 2) session.LoadSource = 1;
    DrawBandPlot(ComputeBandFigures(session),
                 plot == "rl" ? BandQuantity::ReturnLoss : plot == "gamma" ? BandQuantity::Gamma : BandQuantity::VSWR,
                 drawing);
    // The plot keeps its own proportions, whatever the screen.
    const std::string failure = RenderToFile(drawing, kBandPage, size->width, size->height, *output);
    if (failure.empty()) return kExitOk;
    err << "kalvex-cli render: " << failure << "\n";
    return kExitFailed;
  } else {
    if (aspect) session.ChartAspect = static_cast<float>(aspectValue);
    session.LoadSource = session.LoadSource == 0 ? 1 : session.LoadSource;
    LoadAnalysisView(session);
    RefreshAnalysis(session, drawing);
    pageSize = kAnalysisPage;
  }
  const std::string failure =
      RenderToFile(drawing, pageSize, size->width, size->height, *output, 0,
                   {static_cast<double>(screen->width), static_cast<double>(screen->height)});
  if (!failure.empty()) {
    err << "kalvex-cli render: " << failure << "\n";
    return kExitFailed;
  }
  return kExitOk;
}

}  // namespace kalvex
