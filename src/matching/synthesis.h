#pragma once

#include <vector>

#include "matching/match.h"

namespace kalvex {

// The closed forms behind FindMatches. Each gives every solution of its kind
// from `load` to the real system impedance `z0` at `frequency`, as lossless
// stages from the load outwards; a kind with no solution gives none.
using MatchStages = std::vector<MatchStage>;

// Shunt-then-series and series-then-shunt, each sign: up to four.
std::vector<MatchStages> LNetworks(Impedance load, double z0, double frequency);

// Pi (shunt, series, shunt) and T (series, shunt, series) networks of loaded
// Q `q`, as two L sections through a virtual resistance; every sign.
std::vector<MatchStages> PiNetworks(Impedance load, double z0, double frequency, double q);
std::vector<MatchStages> TNetworks(Impedance load, double z0, double frequency, double q);

// The smallest loaded Q a Pi or T network reaches for the load:
// sqrt(Rhigh / Rlow - 1), the load taken in parallel (Pi) or in series (T).
double SmallestPiQ(Impedance load, double z0);
double SmallestTQ(Impedance load, double z0);

// A line of z0 from the load, then a shunt open or shorted stub of z0: both
// line lengths, each with either stub.
std::vector<MatchStages> StubMatches(Impedance load, double z0, double frequency);

// A line of z0 to where the load is real (its maximum or its minimum), then a
// quarter-wave line of sqrt(R z0).
std::vector<MatchStages> QuarterWaveMatches(Impedance load, double z0, double frequency);

// Quarter-wave sections of binomial or Chebyshev steps (ripple in dB of
// insertion loss) after the line that makes the load real.
std::vector<MatchStages> BinomialMatches(Impedance load, double z0, double frequency, int sections);
std::vector<MatchStages> ChebyshevMatches(Impedance load, double z0, double frequency, int sections,
                                          double rippleDb);

// The impedances of the sections of a multi-section transformer from `zs`
// (the generator's side) to the real `zl`, generator side first: the steps
// ln(Z[n+1] / Z[n]) are 2 Γn, binomial or Chebyshev, symmetric, summing to
// ln(zl / zs), and alternating in sign to 0, so the match is exact at the
// centre frequency. A Chebyshev transformer of 2 or 4 sections has its
// ripple's peak at the centre: it is moved off, so that the centre is a zero
// of the reflection (2 sections then step as the binomial one does).
std::vector<double> BinomialSections(double zs, double zl, int sections);
std::vector<double> ChebyshevSections(double zs, double zl, int sections, double rippleDb);

}  // namespace kalvex
