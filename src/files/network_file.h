#pragma once

#include <filesystem>
#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

inline constexpr const char* kLastSessionFileName = "LASTSESSION.SSF";
inline constexpr const char* kNetworkFileFilter = "Kalvex files (*.SSF)|*.SSF";

// The name a network file is written under: the chosen name with its last path
// component cut at its first "." and ".SSF" appended ("amp.rev2.SSF" gives
// "amp.SSF"). Empty for an empty (cancelled) choice.
std::string NetworkFileName(const std::string& chosenName);

// Saves the network, the operating point, the circle values and the sweep
// settings under NetworkFileName(chosenName). Writes nothing for an empty name;
// returns false, without a message, when the file cannot be written, with the
// reason in `failure` when given.
bool WriteNetworkFile(const Session& session, Dialogs& dialogs, const std::string& chosenName,
                      std::string* failure = nullptr);

// "Save net" of the Design and Analysis pages: the save chooser, starting at
// the name chosen before, then WriteNetworkFile under the chosen name, which
// becomes FileName. A cancelled chooser writes nothing and keeps FileName.
void SaveNetworkAs(Session& session, Dialogs& dialogs);

// Reads a network file into the session, checking the values as they come.
// On a failed check or an unreadable file it says so and falls back on the
// network defaults; an empty name means the chooser was cancelled. Returns true
// when the file was read (a file that ends early is read without complaint).
bool ReadNetworkFile(Session& session, Dialogs& dialogs, const std::string& chosenName);

// The last-session file, written at every way out of the program and read once
// at start-up. The reader checks nothing and falls back on the network defaults
// silently; the writer beeps and says so when it fails, and returns false
// with the reason in `failure` when given.
bool WriteLastSession(const Session& session, Dialogs& dialogs,
                      const std::filesystem::path& path = kLastSessionFileName,
                      std::string* failure = nullptr);
void ReadLastSession(Session& session, const std::filesystem::path& path = kLastSessionFileName);

}  // namespace kalvex
