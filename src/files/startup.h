#pragma once

#include <filesystem>

#include "model/session.h"

namespace kalvex {

// The start-up of the session, without the drawing: identity and constants,
// the empty network, the last session and the defaults read from `directory`,
// the chart centre, and the cable catalogue shipped with the program.
void StartSession(Session& session, const std::filesystem::path& directory = ".");

// The welcome page's caption: "Kalvex 2.12 - Welcome !".
std::string WelcomeCaption(const Session& session);

}  // namespace kalvex
