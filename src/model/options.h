#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// The options page opens: the velocity factor is brought into 0.0001..1
// silently; returns the text of its box (" 1", " .66").
std::string OpenOptions(Session& session);

// "Return": the velocity factor is read from its box and kept within
// 0.0001..1, with a message when it is reset.
void ReturnFromOptions(Session& session, Dialogs& dialogs, const std::string& velocityText);

}  // namespace kalvex
