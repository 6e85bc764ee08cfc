#include "files/startup.h"

#include <system_error>

#include "files/cable_catalogue.h"
#include "files/defaults_file.h"
#include "files/network_file.h"
#include "files/text_file.h"

namespace kalvex {
namespace {

// The catalogue shipped with the running program, found from where the
// program lies; an empty one where it is not there.
CableCatalogue ShippedCables() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  const std::filesystem::path path = CableCataloguePath(self.parent_path());
  if (path.empty()) return {};
  std::string failure;
  const auto text = ReadTextFile(path, &failure);
  if (!text) return {{}, {failure}};
  return ParseCableCatalogue(*text);
}

}  // namespace

void StartSession(Session& session, const std::filesystem::path& directory) {
  InitialiseSession(session);
  ReadLastSession(session, directory / kLastSessionFileName);
  ReadDefaults(session, directory / kDefaultsFileName);
  session.ChartCentreX = 8000;
  session.ChartCentreY = 5000;
  session.Cables = ShippedCables();
}

std::string WelcomeCaption(const Session& session) {
  return "Kalvex " + session.Version + " - Welcome !";
}

}  // namespace kalvex
