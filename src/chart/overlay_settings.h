#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// The two overlays whose size a setup dialog sets.
enum class Overlay { QArcs, VSWRCircle };

// The value the overlay's setup dialog shows when it opens: QCircle or
// VSWRCircle as a decimal number of up to 7 significant digits.
std::string OverlaySettingText(const Session& session, Overlay overlay);

// The dialog's Accept: the typed value goes into the session; outside the
// overlay's range (0.1..20 for Q, 1.01..20 for VSWR, compared in single
// precision) the refusal is shown and false returned, so that the dialog stays
// open with the value left in the session.
bool AcceptOverlaySetting(Session& session, Dialogs& dialogs, Overlay overlay,
                          const std::string& typed);

// The overlay's on/off button: switches it over and returns the new state.
bool ToggleOverlay(Session& session, Overlay overlay);

// Whether the overlay is on; SwitchOnOverlay is what closing its dialog does.
bool OverlayOn(const Session& session, Overlay overlay);
void SwitchOnOverlay(Session& session, Overlay overlay);

}  // namespace kalvex
