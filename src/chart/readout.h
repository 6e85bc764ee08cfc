#pragma once

#include <string>

#include "model/session.h"

namespace kalvex {

// What the readout labels show for a point of the chart: the reflection
// coefficient (magnitude @ angle), VSWR, return loss, R, jX, G and jB.
struct Readout {
  bool inside = false;  // within the unit circle: the labels are shown
  std::string rho;
  std::string vswr;
  std::string returnLoss;
  std::string resistance;
  std::string reactance;
  std::string conductance;
  std::string susceptance;
};

// The readout of page point (x, y) at the session's view and system impedance.
Readout ReadoutAt(const Session& session, double x, double y);

}  // namespace kalvex
