#include "analysis/tabulate.h"

#include <cmath>

#include "analysis/sweep.h"
#include "model/format.h"
#include "model/reflection.h"
#include "model/trim.h"

namespace kalvex {
namespace {

void AppendColumn(std::string& row, const std::string& text, std::size_t padTo) {
  row += text;
  row += ' ';
  if (row.size() < padTo) row.append(padTo - row.size(), ' ');
}

}  // namespace

std::string TabulateRow(Session& session, int index) {
  if (session.SweepRho[index] == 0) session.SweepRho[index] = 1e-9;
  const double rho = session.SweepRho[index];
  std::string row;
  AppendColumn(row, Trimmed(FormatSI(session.SweepFreq[index])), 10);
  AppendColumn(row, Trimmed(FormatGeneral(session.SweepR[index])), 18);
  AppendColumn(row, Signed(Trimmed(FormatGeneral(session.SweepX[index]))), 28);
  AppendColumn(row, Trimmed(FormatGeneral(rho)), 37);
  AppendColumn(row, Signed(Trimmed(FormatGeneral(session.SweepAngle[index]))), 47);
  AppendColumn(row, Trimmed(FormatGeneral(ReturnLossDb(rho))), 56);
  AppendColumn(row, Trimmed(FormatGeneral(session.SweepVSWR[index])), 66);
  return row;
}

std::vector<std::string> TabulateSweep(Session& session) {
  const SweepIndexes indexes = RunSweepPoints(session, SweepUse::Table);
  std::vector<std::string> rows;
  for (int k = indexes.first; k <= indexes.last; ++k) {
    if (IsFiniteSweepPoint(session, k)) rows.push_back(TabulateRow(session, k));
  }
  return rows;
}

}  // namespace kalvex
