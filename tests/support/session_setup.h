#pragma once

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

// The manual sweep over start..stop in `points` points.
inline void SweepOver(Session& session, double start, double stop, int points) {
  session.SweepStart = start;
  session.SweepStop = stop;
  session.SweepPoints = static_cast<int16_t>(points);
}

}  // namespace kalvex::testing
