#include "model/sweep_indexes.h"

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

}  // namespace kalvex
