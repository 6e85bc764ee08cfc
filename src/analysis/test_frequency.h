#pragma once

#include <string>

#include "analysis/tuning.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// "Freq enter": the typed frequency, made positive and kept within
// 5 kHz..10 GHz with a message when reset. Returns the box's new text.
std::string EnterTestFrequency(Session& session, Dialogs& dialogs, const std::string& typed);

// A step of the test frequency from what is typed, by the tuning step sizes
// and without limits. Returns the box's new text.
std::string StepTestFrequency(Session& session, const std::string& typed, StepDirection direction,
                              double size);

}  // namespace kalvex
