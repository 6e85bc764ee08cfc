#pragma once

#include <complex>
#include <string>
#include <vector>

#include "model/network_state.h"
#include "model/session.h"

namespace kalvex {

// The reference impedance the analyser measures against, whatever the
// session's system impedance.
inline constexpr double kAnalyserReference = 50;

// One frequency of a sweep as the analyser reports it: S11, corrected by the
// analyser's own calibration.
struct MeasuredPoint {
  double frequency = 0;
  std::complex<double> s11;
};

struct MeasuredSweep {
  std::vector<MeasuredPoint> points;  // by rising frequency
  int leftOutLines = 0;               // malformed lines of its replies, not trusted
};

// The load R + jX in ohms that a reflection S11 stands for at the analyser's
// reference; not finite for an S11 of 1 (an open circuit) or NaN.
std::complex<double> ImpedanceOfS11(std::complex<double> s11);

// The mean S11 of several sweeps, frequency by frequency: a frequency that one
// sweep left out is averaged over the sweeps that have it.
MeasuredSweep AverageSweeps(const std::vector<MeasuredSweep>& sweeps);

// The sweep as a one-port Touchstone file, "# Hz S RI R 50", a line per
// point at full precision, after comment lines of `comments` (each given
// without its "! ").
std::string MeasuredTouchstone(const MeasuredSweep& sweep, const std::vector<std::string>& comments);

// Makes the sweep the session's load data, as reading a load-data file does:
// LoadSource 2, the table, the sweep range, and the working point at DataIndex
// (kept when the table had that many points, else the middle one). Points with
// no finite impedance are left out. Returns the number of points taken.
int TakeMeasuredLoad(Session& session, const MeasuredSweep& sweep);

// Puts back the load of `before` (the state before measuring began): the
// load-data table with its sweep range, the working point and the single
// load. The stages stay as they are now, tuned while measuring or not.
void RestoreLoad(Session& session, const NetworkState& before);

}  // namespace kalvex
