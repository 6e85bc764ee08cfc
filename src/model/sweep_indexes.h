#pragma once

#include "model/session.h"

namespace kalvex {

// The indexes of the sweep arrays that a sweep fills: 0..N−1 for a manual
// sweep (LoadSource 1), 1..SweepPoints over the load-data table (LoadSource 2).
// Empty (first > last) for any other LoadSource or no points.
struct SweepIndexes {
  int first = 0;
  int last = -1;
};
SweepIndexes SweepIndexesOf(const Session& session);

}  // namespace kalvex
