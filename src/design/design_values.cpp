#include "design/design_values.h"

#include <cmath>

#include "model/format.h"

namespace kalvex {

DesignValueTexts PrepareDesignValues(Session& session) {
  DesignValueTexts texts;
  if (session.DefaultCapacitorQ == 0) session.DefaultCapacitorQ = 1000;
  texts.capacitorQ = FormatGeneral(session.DefaultCapacitorQ);
  if (session.DefaultInductorQ == 0) session.DefaultInductorQ = 100;
  texts.inductorQ = FormatGeneral(session.DefaultInductorQ);
  if (session.SystemZ <= 0) {
    session.SystemZ = 50;
    texts.systemZ = "50";
  } else {
    texts.systemZ = FormatSmallSI(session.SystemZ);
  }
  if (session.LoadSource == 0) session.LoadSource = 1;
  if (session.Frequency <= 0) {
    session.Frequency = 1'000'000;
    texts.frequency = "1 M";
  } else {
    texts.frequency = FormatSI(session.Frequency);
  }
  if (session.VelocityFactor == 0) session.VelocityFactor = 1;
  return texts;
}

void LimitDesignValues(Session& session, Dialogs& dialogs, std::string& systemZText,
                       std::string& frequencyText, const BoxRewrite& rewrite) {
  const auto reset = [&](double& value, double limit, std::string& text, int box, const char* message) {
    value = limit;
    text = box == 0 ? FormatSmallSI(value) : FormatSI(value);
    if (rewrite) rewrite(box, text);
    dialogs.Message(message);
  };
  session.SystemZ = ParseValue(systemZText);
  if (!(session.SystemZ >= 1)) {
    reset(session.SystemZ, 1, systemZText, 0, "System impedance has been reset to the minimum allowed (1 ohm).");
  }
  if (session.SystemZ > 10'000) {
    reset(session.SystemZ, 10'000, systemZText, 0, "System impedance has been reset to the maximum allowed (10K).");
  }
  // Read without the parser's own 10 GHz limit, so that "20G" is told it was reset.
  session.Frequency = std::fabs(ParseValueUnlimited(frequencyText));
  if (!(session.Frequency >= 10'000)) {
    reset(session.Frequency, 10'000, frequencyText, 1, "Frequency has been reset to the minimum allowed (10kHz).");
  }
  if (session.Frequency > 1e10) {
    reset(session.Frequency, 1e10, frequencyText, 1, "Frequency has been reset to the maximum allowed (10gHz).");
  }
}

std::string DesignCaption(const Session& session) {
  return "Kalvex " + session.Version + " - Design " + session.FileName;
}

}  // namespace kalvex
