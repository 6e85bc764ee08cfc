#include "files/exit_actions.h"

#include "files/network_file.h"

namespace kalvex {

bool NetworkIsEmpty(const Session& session) {
  for (int s = 1; s <= kLastStage; ++s) {
    if (session.ElementType[s] > 0) return false;
  }
  return true;
}

std::string EndAndQuit(const Session& session, Dialogs& dialogs,
                       const std::filesystem::path& lastSession) {
  WriteLastSession(session, dialogs, lastSession);
  return "Data for this session has been saved as 'LastSession'";
}

std::optional<std::string> SaveThenExit(Session& session, Dialogs& dialogs,
                                        const std::filesystem::path& lastSession) {
  // The chooser starts empty each time, so a cancel is always an empty name;
  // it leaves FileName as it was.
  const std::string chosen = dialogs.ChooseSaveFile("Write Kalvex File", kNetworkFileFilter, "");
  if (chosen.empty()) return std::nullopt;
  session.FileName = chosen;
  WriteNetworkFile(session, dialogs, session.FileName);
  WriteLastSession(session, dialogs, lastSession);
  return "This session data has been saved";
}

}  // namespace kalvex
