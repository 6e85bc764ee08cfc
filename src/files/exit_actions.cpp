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
  std::string failure;
  if (WriteLastSession(session, dialogs, lastSession, &failure)) {
    return "Data for this session has been saved as 'LastSession'";
  }
  return "Nothing was saved: " + failure;
}

std::optional<std::string> SaveThenExit(Session& session, Dialogs& dialogs,
                                        const std::filesystem::path& lastSession) {
  // The chooser starts empty each time, so a cancel is always an empty name,
  // and FileName takes it as it takes any answer: a later "End / Quit" then
  // saves a session that names no network file.
  session.FileName = dialogs.ChooseSaveFile("Write Kalvex File", kNetworkFileFilter, "");
  if (session.FileName.empty()) return std::nullopt;
  std::string networkFailure;
  std::string sessionFailure;
  const bool network = WriteNetworkFile(session, dialogs, session.FileName, &networkFailure);
  const bool lastSessionWritten = WriteLastSession(session, dialogs, lastSession, &sessionFailure);
  if (network && lastSessionWritten) return "This session data has been saved";
  if (network) return "The network was saved; the last session was not: " + sessionFailure;
  if (lastSessionWritten) {
    return "The network was not saved: " + networkFailure + ". The last session was saved.";
  }
  return "Nothing was saved: " + networkFailure + "; " + sessionFailure;
}

}  // namespace kalvex
