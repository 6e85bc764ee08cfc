#pragma once

#include <array>

#include "model/elements.h"
#include "model/session.h"
#include "model/two_port.h"

namespace kalvex {

// A coaxial cable or open-wire line with loss, as cable makers describe it:
// Value(1) physical length in metres, Value(2) characteristic impedance in
// ohms (taken as real), Value(3) velocity factor, Value(4) k1 and Value(5) k2
// of the matched loss in dB per 100 m, k1 * sqrt(f / 1 MHz) + k2 * (f / 1 MHz).
struct CableSlots {
  double lengthMetres;
  double characteristicZ;
  double velocityFactor;
  double k1;
  double k2;
};
CableSlots CableOf(const std::array<double, kSlotCount>& slot);

// The cable's matched loss at f, in dB per 100 m and in dB over its length.
double CableLossPer100m(const CableSlots& cable, double f);
double CableMatchedLossDb(const CableSlots& cable, double f);

// The cable as a line of distributed constants at f, per metre: series R and
// L, shunt G and C, chosen so that sqrt((R + jwL) / (G + jwC)) is the real
// characteristic impedance and sqrt((R + jwL)(G + jwC)) is alpha + j beta.
// With a real impedance the loss splits evenly: R = alpha Z0, G = alpha / Z0.
struct LinePerMetre {
  double R;
  double L;
  double G;
  double C;
};
LinePerMetre CablePerMetre(const CableSlots& cable, double f);

// Zin = Z0 (ZL + Z0 tanh(gamma l)) / (Z0 + ZL tanh(gamma l)). A cable whose
// impedance or velocity factor is not above 0 is passed over, as a line of
// 0 ohms is.
Impedance CableStage(const CableSlots& cable, double f, Impedance in);
// The cable as a two-port: cosh, Z0 sinh, sinh / Z0, cosh of gamma l; a
// cable passed over is a through connection.
Abcd CableAbcd(const CableSlots& cable, double f);

// The power into the cable's generator end over the power it delivers into
// `load` at its far end (1 for a lossless cable, 10^(loss/10) for a matched
// one): its own loss with the standing waves the load leaves on it. A load
// without resistance takes no power: the ratio is then not finite.
double CablePowerRatio(const CableSlots& cable, double f, Impedance load);

// An impedance transformer N:1, load side to generator side: Value(1) the
// ratio N, Value(2) the magnetising inductance across the generator side and
// Value(3) the leakage inductance in series on it, in henries (0: none).
struct TransformerSlots {
  double ratio;
  double magnetisingH;
  double leakageH;
};
TransformerSlots TransformerOf(const std::array<double, kSlotCount>& slot);

// ZL / N, then the magnetising inductance across it, then the leakage
// inductance in series; an inductance not above 0 is none. A ratio not above 0
// is passed over.
Impedance TransformerStage(const TransformerSlots& transformer, double f, Impedance in);
// The transformer as a two-port, generator side first: the leakage in
// series, the magnetising inductance across, then the ratio.
Abcd TransformerAbcd(const TransformerSlots& transformer, double f);

// Cables and transformers are the feed between the antenna and whatever
// matches it: the highest stage holding one (0 when there is none). Matching
// works on the load as seen at its generator side.
bool IsFeedPart(int16_t type);
int LastFeedStage(const Session& session);

}  // namespace kalvex
