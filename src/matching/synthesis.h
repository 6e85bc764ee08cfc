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
// Q `q`, as two L sections through a virtual resistance; every sign. Only
// networks of three parts: where a part vanishes the network is an L one.
std::vector<MatchStages> PiNetworks(Impedance load, double z0, double frequency, double q);
std::vector<MatchStages> TNetworks(Impedance load, double z0, double frequency, double q);

// The smallest loaded Q a Pi or T network reaches for the load:
// sqrt(Rhigh / Rlow - 1), the load taken in parallel (Pi) or in series (T).
double SmallestPiQ(Impedance load, double z0);
double SmallestTQ(Impedance load, double z0);

// A line of z0 from the load, then a shunt open or shorted stub of z0: both
// line lengths (for R = z0 one of them a quarter wave), each with either stub.
std::vector<MatchStages> StubMatches(Impedance load, double z0, double frequency);

// A line of z0 to where the load is real (its maximum or its minimum), then a
// quarter-wave line of sqrt(R z0).
std::vector<MatchStages> QuarterWaveMatches(Impedance load, double z0, double frequency);

// Quarter-wave sections of binomial or Chebyshev steps after the line that
// makes the load real. `gammaMax` is the Chebyshev passband's largest |Γ|.
std::vector<MatchStages> BinomialMatches(Impedance load, double z0, double frequency, int sections);
std::vector<MatchStages> ChebyshevMatches(Impedance load, double z0, double frequency, int sections,
                                          double gammaMax);

// The impedances of the sections of a multi-section transformer from `zs`
// (the generator's side) to the real `zl`, generator side first: the steps
// ln(Z[n+1] / Z[n]) are 2 Γn, symmetric and summing to ln(zl / zs). Binomial:
// Γn in proportion to C(N, n), maximally flat at the centre frequency.
// Chebyshev: the equal-ripple design, |Γ| rippling between 0 and `gammaMax`
// over the passband; an even N has a ripple's peak, not a zero, at the centre.
// Nothing when the ripple is at least ln(zl / zs) / 2: no such design exists.
std::vector<double> BinomialSections(double zs, double zl, int sections);
std::vector<double> ChebyshevSections(double zs, double zl, int sections, double gammaMax);

}  // namespace kalvex
