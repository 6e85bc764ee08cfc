#pragma once

#include <cstdint>

#include "model/session.h"

namespace kalvex {

// Carries the load impedance through stages 1..5 at one frequency and leaves
// the impedance seen from the generator in InputR, InputX. With LoadSource 2
// the load and Frequency come from load-data point `pointIndex` (0..1000), and
// Frequency keeps that point's value. Does nothing while Frequency is 0 or less.
void CalculateNetwork(Session& session, int16_t pointIndex);

}  // namespace kalvex
