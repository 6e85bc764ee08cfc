#pragma once

#include "model/session.h"

namespace kalvex {

// Who runs the sweep: the chart redraw stores the VSWR as computed; the
// Tabulate page caps it at 1,000,000 and points DataIndex at the middle point.
enum class SweepUse { Chart, Table };

// The indexes of the sweep arrays that a sweep fills: 0..N−1 for a manual
// sweep (LoadSource 1), 1..SweepPoints over the load-data table (LoadSource 2).
// Empty (first > last) for any other LoadSource or no points.
struct SweepIndexes {
  int first = 0;
  int last = -1;
};
SweepIndexes SweepIndexesOf(const Session& session);

// Runs the sweep of the current settings: for each point it sets the frequency
// (and with load data PointIndex), calls CalculateNetwork and stores frequency,
// input impedance, Rho, angle and VSWR in the sweep arrays. A manual sweep of
// one point runs at SweepStart. Frequency and SweepPoints end as they were.
SweepIndexes RunSweepPoints(Session& session, SweepUse use);

}  // namespace kalvex
