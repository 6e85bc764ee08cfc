#pragma once

#include <functional>

#include "model/reflection.h"
#include "model/session.h"
#include "model/sweep_indexes.h"

namespace kalvex {

// Who runs the sweep: the chart redraw stores the VSWR as computed; the
// Tabulate page caps it at 1,000,000 and points DataIndex at the middle point.
enum class SweepUse { Chart, Table };

// Called for each swept point after it is stored, with Frequency still at the
// point's frequency: the index it was stored at and where it lands on the chart.
using SweepPointVisitor = std::function<void(int index, const PlottedPoint& point)>;

// Runs the sweep of the current settings: for each point it sets the frequency
// (and with load data PointIndex), calls CalculateNetwork and stores frequency,
// input impedance, Rho, angle and VSWR in the sweep arrays. A manual sweep of
// one point runs at SweepStart. Frequency and SweepPoints end as they were.
SweepIndexes RunSweepPoints(Session& session, SweepUse use,
                            const SweepPointVisitor& visit = nullptr);

}  // namespace kalvex
