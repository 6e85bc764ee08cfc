#include "analysis/test_frequency.h"

#include <cmath>

#include "model/format.h"

namespace kalvex {

std::string EnterTestFrequency(Session& session, Dialogs& dialogs, const std::string& typed) {
  // Read without the parser's own 10 GHz limit, so that "20G" is told it was reset.
  session.Frequency = std::fabs(ParseValueUnlimited(typed));
  if (session.Frequency < 5000) {
    session.Frequency = 5000;
    dialogs.Message("Frequency has been reset to the minimum allowed (5kHz).");
  }
  if (session.Frequency > 1e10) {
    session.Frequency = 1e10;
    dialogs.Message("Frequency has been reset to the maximum allowed (10gHz).");
  }
  return FormatSI(session.Frequency);
}

std::string StepTestFrequency(Session& session, const std::string& typed, StepDirection direction,
                              double size) {
  session.Frequency = ParseValue(typed);
  const double f = session.TuneStepPercent * size / session.ChartZoom;
  session.Frequency = direction == StepDirection::Up ? session.Frequency * (1 + f)
                                                     : session.Frequency / (1 + f);
  return FormatSI(session.Frequency);
}

}  // namespace kalvex
