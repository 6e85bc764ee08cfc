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
  // The chooser starts empty each time, so a cancel is always an empty name;
  // it leaves FileName as it was.
  const std::string chosen = dialogs.ChooseSaveFile("Write Kalvex File", kNetworkFileFilter, "");
  if (chosen.empty()) return std::nullopt;
  session.FileName = chosen;
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
