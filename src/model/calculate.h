#pragma once

#include <cstdint>

#include "model/elements.h"
#include "model/session.h"

namespace kalvex {

// Carries the load impedance through stages 1..5 at one frequency and leaves
// the impedance seen from the generator in InputR, InputX. With LoadSource 2
// the load and Frequency come from load-data point `pointIndex` (0..1000), and
// Frequency keeps that point's value. Does nothing while Frequency is 0 or less.
void CalculateNetwork(Session& session, int16_t pointIndex);

// CalculateNetwork in two parts, for loops that recalculate only the stages
// that change: the load of point `pointIndex` (with LoadSource 2 it sets
// Frequency to that point's, as CalculateNetwork does), and `z` carried
// through stages first..last at Frequency. Together they give CalculateNetwork's
// result to the bit. Frequency must be above 0.
Impedance NetworkLoad(Session& session, int16_t pointIndex);
Impedance ThroughStages(Session& session, Impedance z, int first, int last);

}  // namespace kalvex
