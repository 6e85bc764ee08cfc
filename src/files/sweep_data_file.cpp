#include "files/sweep_data_file.h"

#include <algorithm>
#include <cmath>

#include "files/safe_write.h"
#include "files/text_file.h"
#include "model/format.h"
#include "model/reflection.h"
#include "model/sweep_indexes.h"

namespace kalvex {
std::string SweepDataText(const Session& session, const std::string& chosenName,
                          const std::string& dateTime) {
  std::string text;
  auto line = [&text](const std::string& content) { text += content + kLineEnd; };
  line("Kalvex data file");
  line("Filename: " + PrintableText(chosenName));
  line(dateTime);
  line("");
  line("Freq, Resistance, Reactance, Rho, RhoAngle, Return loss, VSWR");
  line("");
  const SweepIndexes indexes = SweepIndexesOf(session);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    if (!IsFiniteSweepPoint(session, k)) continue;
    line(FileNumber(session.SweepFreq[k]) + FileNumber(session.SweepR[k]) +
         FileNumber(session.SweepX[k]) + FileNumber(session.SweepRho[k]) +
         FileNumber(session.SweepAngle[k]) + FileNumber(ReturnLossDb(session.SweepRho[k])) +
         FileNumber(session.SweepVSWR[k]));
  }
  line("");
  return text;
}

bool WriteSweepData(const Session& session, Dialogs& dialogs, const std::string& chosenName) {
  const std::string name = WithFileType(chosenName, ".DAT");
  if (name.empty()) return false;
  return WriteFileSafely(name, SweepDataText(session, chosenName, dialogs.LocalDateTime()))
      .empty();
}

}  // namespace kalvex
