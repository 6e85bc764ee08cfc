#include "model/sweep_indexes.h"

#include <cmath>

#include <algorithm>

namespace kalvex {
namespace {

constexpr int kMaxManualPoints = kSweepPointCount - 1;  // indexes 0..1999
constexpr int kMaxLoadPoints = kLoadPointCount - 1;     // indexes 1..1000

}  // namespace

SweepIndexes SweepIndexesOf(const Session& session) {
  const int points = std::max<int>(session.SweepPoints, 0);
  if (session.LoadSource == 1) return {0, std::min(points, kMaxManualPoints) - 1};
  if (session.LoadSource == 2) return {1, std::min(points, kMaxLoadPoints)};
  return {};
}

bool IsFiniteSweepPoint(const Session& session, int index) {
  for (const double value : {session.SweepFreq[index], session.SweepR[index], session.SweepX[index],
                             session.SweepRho[index], session.SweepAngle[index],
                             session.SweepVSWR[index]}) {
    if (!std::isfinite(value)) return false;
  }
  return true;
}

int NonFiniteSweepPoints(const Session& session) {
  const SweepIndexes indexes = SweepIndexesOf(session);
  int count = 0;
  for (int k = indexes.first; k <= indexes.last; ++k) count += IsFiniteSweepPoint(session, k) ? 0 : 1;
  return count;
}

}  // namespace kalvex
