#pragma once

#include <functional>
#include <string>

#include "analysis/tuning.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// "Freq enter": the typed frequency, made positive and kept within
// 5 kHz..10 GHz with a message when reset. The box is given the frequency's
// text through `showText` first, and again before a limit's message.
void EnterTestFrequency(Session& session, Dialogs& dialogs, const std::string& typed,
                        const std::function<void(const std::string&)>& showText);

// A step of the test frequency from what is typed, by the tuning step sizes
// and without limits. Returns the box's new text.
std::string StepTestFrequency(Session& session, const std::string& typed, StepDirection direction,
                              double size);

}  // namespace kalvex
