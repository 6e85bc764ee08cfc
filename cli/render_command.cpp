#include <QGuiApplication>
#include <memory>
#include <regex>

#include "cli.h"
#include "cli_options.h"
#include "commands.h"
#include "console_dialogs.h"
#include "design/schematic.h"
#include "design/symbols.h"
#include "files/network_file.h"
#include "files/startup.h"
#include "files/welcome_pictures.h"
#include "platform/page_renderer.h"

namespace kalvex {
namespace {

// Painting text needs a GUI application; the command line has no screen.
void EnsureGuiApplication() {
  if (QGuiApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "kalvex-cli";
  static char* argv[] = {name, nullptr};
  static QGuiApplication application(argc, argv);
}

std::optional<QSize> SizeOf(const std::string& text) {
  std::smatch match;
  static const std::regex pattern("([0-9]{1,5})x([0-9]{1,5})");
  if (!std::regex_match(text, match, pattern)) return std::nullopt;
  const QSize size(std::stoi(match[1]), std::stoi(match[2]));
  if (size.width() < 16 || size.height() < 16) return std::nullopt;
  return size;
}

}  // namespace

int RunRender(const Command& command, const std::vector<std::string>& words, std::ostream&,
              std::ostream& err) {
  std::string problem;
  const auto arguments = SplitArguments(words, {"--page", "--size", "-o"}, {}, problem);
  if (!arguments) return UsageError(command, problem, err);
  if (arguments->positional.size() > 1) return UsageError(command, "at most one FILE", err);
  const std::string page = arguments->Option("--page").value_or("");
  if (page != "welcome" && page != "design") {
    return UsageError(command, "--page takes welcome or design", err);
  }
  const auto output = arguments->Option("-o");
  if (!output) return UsageError(command, "-o OUT is needed", err);
  const auto size = SizeOf(arguments->Option("--size").value_or("1200x900"));
  if (!size) return UsageError(command, "--size takes WxH in pixels, such as 1200x900", err);

  Session session;
  StartSession(session);
  ConsoleDialogs dialogs(err);
  if (!arguments->positional.empty() &&
      !ReadNetworkFile(session, dialogs, arguments->positional.front())) {
    return kExitFailed;
  }

  EnsureGuiApplication();
  const float coilArcRadius = CoilArcRadiusFor(size->width(), size->height());
  DisplayList drawing;
  if (page == "welcome") {
    DrawWelcomePage(drawing, session.ChartAspect, coilArcRadius);
  } else {
    DrawDesignPage(session, drawing, coilArcRadius);
  }
  const QString failure = RenderToFile(drawing, {kDesignPageWidth, kDesignPageHeight}, *size,
                                       QString::fromStdString(*output));
  if (!failure.isEmpty()) {
    err << "kalvex-cli render: " << failure.toStdString() << "\n";
    return kExitFailed;
  }
  return kExitOk;
}

}  // namespace kalvex
