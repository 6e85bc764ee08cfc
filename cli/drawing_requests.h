#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "commands.h"
#include "console_dialogs.h"
#include "model/session.h"

namespace kalvex {

// What render and print are asked to draw, read and checked apart from the
// drawing, so that a wrong argument is refused before Qt is loaded.

struct PixelSize {
  int width = 0;
  int height = 0;
};

struct RenderRequest {
  std::string page;            // welcome, design, analysis or band
  std::string plot = "vswr";   // the band plot's quantity: vswr, rl or gamma
  std::optional<double> aspect;  // the Analysis page's chart aspect
  std::string output;
  PixelSize size{1920, 1080};
  PixelSize screen{1920, 1080};  // the screen the page is drawn for
};

struct PrintRequest {
  bool table = false;
  std::string output;
};

// Read render's and print's arguments into `request` and prepare `session`:
// the network (or, for render without FILE, the one Kalvex starts with), the
// chart's view and the sweep. An exit code when the command must stop.
std::optional<int> PrepareRender(const Command& command, const std::vector<std::string>& words,
                                 std::ostream& out, std::ostream& err, Dialogs& dialogs,
                                 Session& session, RenderRequest& request);
std::optional<int> PreparePrint(const Command& command, const std::vector<std::string>& words,
                                std::ostream& out, std::ostream& err, Dialogs& dialogs,
                                Session& session, PrintRequest& request);

}  // namespace kalvex
