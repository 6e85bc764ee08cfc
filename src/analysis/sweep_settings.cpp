#include "analysis/sweep_settings.h"

#include <cmath>

namespace kalvex {

void AcceptSweepSettings(Session& session, Dialogs& dialogs, double start, double stop,
                         double points) {
  session.LoadSource = 1;
  session.SweepStart = std::fabs(start);
  session.SweepStop = std::fabs(stop);
  if (session.SweepStart < 5000) {
    session.SweepStart = 5000;
    dialogs.Message("Start frequency has been reset to the minimum allowed (5 kHz)");
  }
  if (session.SweepStart > 1e10) {
    session.SweepStart = 1e10;
    dialogs.Message("Start frequency has been reset to the maximum allowed (10 gHz)");
  }
  if (session.SweepStop < 5010) {
    session.SweepStop = 5010;
    dialogs.Message("Stop frequency has been reset to the minimum allowed (5.01 kHz)");
  }
  if (session.SweepStop > 1e10) {
    session.SweepStop = 1e10;
    dialogs.Message("Stop frequency has been reset to the maximum allowed.");
  }
  // Clamped before the conversion, so no count can overflow the 16-bit field.
  const double count = std::nearbyint(points);
  session.SweepPoints = static_cast<int16_t>(count < 3 ? 3 : count > 2000 ? 2000 : count);
}

}  // namespace kalvex
