#include "files/sweep_data_file.h"

#include <algorithm>
#include <cmath>

#include "files/text_file.h"
#include "model/format.h"
#include "model/sweep_indexes.h"

namespace kalvex {
namespace {

// A perfect match has no finite return loss; it is written as that of a
// reflection of 1e-9 (180 dB), the floor the Tabulate page uses as well.
constexpr double kSmallestRho = 1e-9;

double ReturnLoss(double rho) { return 20 * std::log10(1 / std::max(rho, kSmallestRho)); }

}  // namespace

std::string SweepDataText(const Session& session, const std::string& chosenName,
                          const std::string& dateTime) {
  std::string text;
  auto line = [&text](const std::string& content) { text += content + kLineEnd; };
  line("Kalvex data file");
  line("Filename: " + chosenName);
  line(dateTime);
  line("");
  line("Freq, Resistance, Reactance, Rho, RhoAngle, Return loss, VSWR");
  line("");
  const SweepIndexes indexes = SweepIndexesOf(session);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    line(FileNumber(session.SweepFreq[k]) + FileNumber(session.SweepR[k]) +
         FileNumber(session.SweepX[k]) + FileNumber(session.SweepRho[k]) +
         FileNumber(session.SweepAngle[k]) + FileNumber(ReturnLoss(session.SweepRho[k])) +
         FileNumber(session.SweepVSWR[k]));
  }
  line("");
  return text;
}

bool WriteSweepData(const Session& session, Dialogs& dialogs, const std::string& chosenName) {
  const std::string name = WithFileType(chosenName, ".DAT");
  if (name.empty()) return false;
  return WriteTextFileAtomically(name,
                                 SweepDataText(session, chosenName, dialogs.LocalDateTime()));
}

}  // namespace kalvex
