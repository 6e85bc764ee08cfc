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

// Whether every number the sweep stored at `index` is finite, in the double
// precision it was calculated in: a 1E+36 H inductor's huge reactance is a
// point, while a network whose values overflow the calculation (a 1E+308 H
// inductor) gives points that are not. The table, its printout and the files
// all leave those out by this one rule, as no reader takes them back.
bool IsFiniteSweepPoint(const Session& session, int index);

// How many points of the last sweep are not finite.
int NonFiniteSweepPoints(const Session& session);

}  // namespace kalvex
