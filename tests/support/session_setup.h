#pragma once

#include <algorithm>
#include <array>
#include <complex>
#include <vector>

#include "model/calculate.h"
#include "model/session.h"

namespace kalvex::testing {

// A fresh session on a load of r + jx ohms entered by hand, worked at `frequency`.
inline Session SessionOnLoad(double r, double x, double frequency) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = frequency;
  session.Value[0] = {0, r, x};
  return session;
}

// A stage's part: its type and Value(s, 0..5), slot 0 unused.
struct StagePart {
  int16_t type;
  std::array<double, 6> values;
};

// `session` with `parts` in stages 1 on.
inline Session WithStages(Session session, const std::vector<StagePart>& parts) {
  for (std::size_t s = 0; s < parts.size(); ++s) {
    session.ElementType[s + 1] = parts[s].type;
    std::copy(parts[s].values.begin(), parts[s].values.end(), session.Value[s + 1].begin());
  }
  return session;
}

// The impedance `session`'s network shows the generator at `frequency`.
inline std::complex<double> InputAt(Session session, double frequency) {
  session.Frequency = frequency;
  CalculateNetwork(session, 0);
  return {session.InputR, session.InputX};
}

// The manual sweep over start..stop in `points` points.
inline void SweepOver(Session& session, double start, double stop, int points) {
  session.SweepStart = start;
  session.SweepStop = stop;
  session.SweepPoints = static_cast<int16_t>(points);
}

}  // namespace kalvex::testing
