#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// What the exit dialog does before the program ends; the dialog shows the
// returned text for two seconds and then ends the program.

// True when no stage holds a part: the dialog then offers no "Save then exit".
bool NetworkIsEmpty(const Session& session);

// "End / Quit": saves the last session. The text says it was saved only when
// it was; otherwise it names the file that could not be written and why.
std::string EndAndQuit(const Session& session, Dialogs& dialogs,
                       const std::filesystem::path& lastSession);

// "Save then exit": asks for a network file name (FileName), saves the network
// there and the last session. When the user cancels the chooser FileName is
// left empty, nothing is saved and the dialog stays. The text says what was
// saved and what was not.
std::optional<std::string> SaveThenExit(Session& session, Dialogs& dialogs,
                                        const std::filesystem::path& lastSession);

}  // namespace kalvex
