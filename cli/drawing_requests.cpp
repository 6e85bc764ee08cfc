#include "drawing_requests.h"

#include <regex>

#include "cli.h"
#include "command_line.h"
#include "files/startup.h"
#include "session_options.h"

namespace kalvex {
namespace {

// An image of more would take gigabytes of memory to draw.
constexpr int kLargestImage = 16384;
constexpr Range kAspects = {0.5, 1.5, "a factor from 0.5 to 1.5"};

std::optional<PixelSize> SizeOf(const std::string& text) {
  std::smatch match;
  static const std::regex pattern("([0-9]{1,5})x([0-9]{1,5})");
  if (!std::regex_match(text, match, pattern)) return std::nullopt;
  const PixelSize size{std::stoi(match[1]), std::stoi(match[2])};
  if (size.width < 16 || size.height < 16) return std::nullopt;
  if (size.width > kLargestImage || size.height > kLargestImage) return std::nullopt;
  return size;
}

std::string SizeProblem(const std::string& text) {
  if (SizeOf(text)) return "";
  return text + " is not WxH in pixels from 16x16 to 16384x16384, such as 1920x1080";
}

}  // namespace

std::optional<int> PrepareRender(const Command& command, const std::vector<std::string>& words,
                                 std::ostream& out, std::ostream& err, Dialogs& dialogs,
                                 Session& session, RenderRequest& request) {
  std::optional<std::string> file, page, plot, output, size, screen;
  std::optional<double> aspect;
  ChartOptions chart;
  SweepOptions sweep;
  CommandLine line(command);
  line.OptionalFile(file)
      .Choice("--page", page, {"welcome", "design", "analysis", "band"})
      .Choice("--plot", plot, {"vswr", "rl", "gamma"})
      .Number("--aspect", "A", aspect, kAspects)
      .Text("--size", "WxH", size, SizeProblem)
      .Text("--screen", "WxH", screen, SizeProblem)
      .Text("-o", "OUT", output);
  chart.AddTo(line);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return stop;
  if (!page) return line.Refuse("--page is needed: welcome, design, analysis or band", err);
  if (!output) return line.Refuse("-o OUT is needed", err);
  if (const auto stop = RefuseOverwritingInputs(output, file, sweep.load, line, err)) return stop;
  request.page = *page;
  request.plot = plot.value_or(request.plot);
  request.output = *output;
  request.aspect = aspect;
  if (size) request.size = *SizeOf(*size);
  if (screen) request.screen = *SizeOf(*screen);

  StartSession(session);
  chart.ApplyTo(session);
  if (file) {
    if (!ReadNetworkInto(*file, session, dialogs)) return kExitFailed;
  } else {
    SettleNetwork(session, dialogs);
  }
  return ApplySweepOptions(session, dialogs, sweep, line, err, false);
}

std::optional<int> PreparePrint(const Command& command, const std::vector<std::string>& words,
                                std::ostream& out, std::ostream& err, Dialogs& dialogs,
                                Session& session, PrintRequest& request) {
  std::string file;
  std::optional<std::string> output;
  ChartOptions chart;
  SweepOptions sweep;
  CommandLine line(command);
  line.File(file).Flag("--table", request.table).Text("-o", "OUT", output);
  chart.AddTo(line);
  sweep.AddTo(line);
  if (const auto stop = line.Parse(words, out, err)) return stop;
  if (!output) return line.Refuse("-o OUT is needed", err);
  if (const auto stop = RefuseOverwritingInputs(output, file, sweep.load, line, err)) return stop;
  request.output = *output;

  InitialiseSession(session);
  session.LoadSource = 1;
  chart.ApplyTo(session);
  if (!ReadNetworkInto(file, session, dialogs)) return kExitFailed;
  return ApplySweepOptions(session, dialogs, sweep, line, err, false);
}

}  // namespace kalvex
