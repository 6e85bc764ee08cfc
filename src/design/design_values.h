#pragma once

#include <string>

#include "model/session.h"
#include "platform/box_rewrite.h"
#include "platform/dialogs.h"

namespace kalvex {

// The texts of the Design page's four value boxes.
struct DesignValueTexts {
  std::string systemZ;
  std::string frequency;
  std::string capacitorQ;
  std::string inductorQ;
};

// As the Design page opens: missing values get their defaults (capacitor Q
// 1000, inductor Q 100, 50 ohms, 1 MHz, LoadSource 1, velocity factor 1), and
// the boxes show the session's values.
DesignValueTexts PrepareDesignValues(Session& session);

// Before leaving for the Analysis page: the system impedance is kept within
// 1..10000 ohms and the frequency, made positive, within 10 kHz..10 GHz, with a
// message for each reset. The box texts are rewritten where a value was reset,
// and `rewrite` writes them into boxes 0 (system impedance) and 1 (frequency)
// before the message.
void LimitDesignValues(Session& session, Dialogs& dialogs, std::string& systemZText,
                       std::string& frequencyText, const BoxRewrite& rewrite = {});

// "Kalvex 2.12 - Design " followed by the file name.
std::string DesignCaption(const Session& session);

}  // namespace kalvex
