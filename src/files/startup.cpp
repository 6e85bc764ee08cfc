#include "files/startup.h"

#include "files/cable_catalogue.h"
#include "files/defaults_file.h"
#include "files/network_file.h"

namespace kalvex {

void StartSession(Session& session, const std::filesystem::path& directory) {
  InitialiseSession(session);
  ReadLastSession(session, directory / kLastSessionFileName);
  ReadDefaults(session, directory / kDefaultsFileName);
  session.ChartCentreX = 8000;
  session.ChartCentreY = 5000;
  session.Cables = ReadShippedCatalogue();
}

std::string WelcomeCaption(const Session& session) {
  return "Kalvex " + session.Version + " - Welcome !";
}

}  // namespace kalvex
