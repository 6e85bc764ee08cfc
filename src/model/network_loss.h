#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "model/session.h"

namespace kalvex {

// The power the network's parts and cables take at the working frequency
// (with load data, at point `pointIndex` as CalculateNetwork takes it), in dB:
// 10 log10(P_in / P_load) for the power the generator delivers into the
// network. The parts' losses are those the calculation gives them (the Q of
// each capacitor and inductor, resistors, a cable's attenuation, what a
// two-port block's parameters take); lines, stubs and transformers are
// lossless. Nothing for a load without resistance, which takes no power, and
// for a network whose figures are not finite (a block outside its file's
// frequencies among them).
std::optional<double> NetworkLossDb(const Session& session, int16_t pointIndex);

// The matched loss alpha * l of each cable stage at the same frequency.
struct CableLoss {
  int stage = 0;
  double matchedDb = 0;
};
std::vector<CableLoss> CableMatchedLosses(const Session& session, int16_t pointIndex);

}  // namespace kalvex
