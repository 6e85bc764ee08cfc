#include "analysis/test_frequency.h"

#include <cmath>

#include "model/format.h"

namespace kalvex {

void EnterTestFrequency(Session& session, Dialogs& dialogs, const std::string& typed,
                        const std::function<void(const std::string&)>& showText) {
  // Read without the parser's own 10 GHz limit, so that "20G" is told it was reset.
  session.Frequency = std::fabs(ParseValueUnlimited(typed));
  showText(FormatSI(session.Frequency));
  if (session.Frequency < 5000) {
    session.Frequency = 5000;
    showText(FormatSI(session.Frequency));
    dialogs.Message("Frequency has been reset to the minimum allowed (5kHz).");
  }
  if (session.Frequency > 1e10) {
    session.Frequency = 1e10;
    showText(FormatSI(session.Frequency));
    dialogs.Message("Frequency has been reset to the maximum allowed (10gHz).");
  }
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
