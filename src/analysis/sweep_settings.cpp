#include "analysis/sweep_settings.h"

#include <cmath>

#include "model/format.h"

namespace kalvex {

namespace {

// Keeps `value` within minimum..maximum, writing a reset value into its box
// and then saying which limit it was reset to.
void Limit(double& value, double minimum, const char* belowMessage, double maximum,
           const char* aboveMessage, Dialogs& dialogs, int box, const BoxRewrite& rewrite) {
  const auto reset = [&](double limit, const char* message) {
    value = limit;
    if (rewrite) rewrite(box, FormatSI(value));
    dialogs.Message(message);
  };
  if (value < minimum) reset(minimum, belowMessage);
  if (value > maximum) reset(maximum, aboveMessage);
}

}  // namespace

void AcceptSweepSettings(Session& session, Dialogs& dialogs, double start, double stop,
                         double points, const BoxRewrite& rewrite) {
  session.LoadSource = 1;
  session.SweepStart = std::fabs(start);
  session.SweepStop = std::fabs(stop);
  Limit(session.SweepStart, 5000, "Start frequency has been reset to the minimum allowed (5 kHz)",
        1e10, "Start frequency has been reset to the maximum allowed (10 gHz)", dialogs, 0, rewrite);
  Limit(session.SweepStop, 5010, "Stop frequency has been reset to the minimum allowed (5.01 kHz)",
        1e10, "Stop frequency has been reset to the maximum allowed.", dialogs, 1, rewrite);
  // Clamped before the conversion, so no count can overflow the 16-bit field.
  const double count = std::nearbyint(points);
  session.SweepPoints = static_cast<int16_t>(count < 3 ? 3 : count > 2000 ? 2000 : count);
}

bool SweepSettingsUsable(const Session& session) {
  return session.SweepStart > 5000 && session.SweepPoints > 2 && session.SweepStop > 5010;
}

bool SweepDefined(const Session& session) {
  return session.SweepStart > 0 && session.SweepStop > 0 && session.SweepPoints > 0;
}

bool SweepSettingsSwitchable(const Session& session) {
  return session.SweepStart > 10000 && session.SweepPoints > 2 && session.SweepStop > 10100;
}

}  // namespace kalvex
