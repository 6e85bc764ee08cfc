// L, Pi and T networks of capacitors and inductors.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "matching/synthesis.h"

namespace kalvex {
namespace {

// A reactance or susceptance this small beside the system impedance is no
// part at all: the stage is left out.
constexpr double kNegligible = 1e-9;

class Builder {
 public:
  Builder(double z0, double frequency) : z0_(z0), omega_(2 * std::numbers::pi * frequency) {}

  Builder& Series(double x) {
    if (std::fabs(x) < kNegligible * z0_) return *this;
    stages_.push_back(x > 0 ? MatchStage{SeriesInductor, {0, x / omega_}}
                            : MatchStage{SeriesCapacitor, {0, -1 / (omega_ * x)}});
    return *this;
  }
  Builder& Shunt(double b) {
    if (std::fabs(b) * z0_ < kNegligible) return *this;
    stages_.push_back(b > 0 ? MatchStage{ShuntCapacitor, {0, b / omega_}}
                            : MatchStage{ShuntInductor, {0, -1 / (omega_ * b)}});
    return *this;
  }
  MatchStages Stages() const { return stages_; }
  // A Pi or T network with a part too small to count is an L network.
  bool HasParts(std::size_t count) const { return stages_.size() == count; }

 private:
  double z0_;
  double omega_;
  MatchStages stages_;
};

// sqrt(x - 1) for the Q of a step to a virtual resistance x times the end's:
// a rounding above 1 at the smallest Q is a step of none, not a tiny part.
double StepQ(double ratio) {
  constexpr double kRounding = 1e-12;
  return ratio - 1 < kRounding ? 0 : std::sqrt(ratio - 1);
}

Impedance Admittance(Impedance z) {
  const double m = z.R * z.R + z.X * z.X;
  return {z.R / m, -z.X / m};
}

}  // namespace

std::vector<MatchStages> LNetworks(Impedance load, double z0, double frequency) {
  std::vector<MatchStages> networks;
  const Impedance y = Admittance(load);  // G + jB
  // Shunt first: G / (G² + B'²) = z0 puts the node on the unit-resistance circle.
  // A load on the circle gives a square a rounding below 0: it counts as 0.
  if (double square = y.R / z0 - y.R * y.R; square >= -1e-12 * y.R / z0) {
    square = std::max(square, 0.0);
    for (const double sign : {1.0, -1.0}) {
      if (square == 0 && sign < 0) break;
      const double b = sign * std::sqrt(square);
      const double m = y.R * y.R + b * b;
      networks.push_back(Builder(z0, frequency).Shunt(b - y.X).Series(b / m).Stages());
    }
  }
  // Series first: R / (R² + X'²) = 1 / z0 puts it on the unit-conductance circle.
  if (double square = load.R * (z0 - load.R); square >= -1e-12 * load.R * z0) {
    square = std::max(square, 0.0);
    for (const double sign : {1.0, -1.0}) {
      if (square == 0 && sign < 0) break;
      const double x = sign * std::sqrt(square);
      const double m = load.R * load.R + x * x;
      networks.push_back(Builder(z0, frequency).Series(x - load.X).Shunt(x / m).Stages());
    }
  }
  return networks;
}

double SmallestPiQ(Impedance load, double z0) {
  const double r = 1 / Admittance(load).R;
  return std::sqrt(std::max(r, z0) / std::min(r, z0) - 1);
}

double SmallestTQ(Impedance load, double z0) {
  return std::sqrt(std::max(load.R, z0) / std::min(load.R, z0) - 1);
}

std::vector<MatchStages> PiNetworks(Impedance load, double z0, double frequency, double q) {
  const Impedance y = Admittance(load);
  const double r = 1 / y.R;  // the load's parallel resistance
  const double virtualR = std::max(r, z0) / (q * q + 1);
  const double q1 = StepQ(r / virtualR);
  const double q2 = StepQ(z0 / virtualR);
  std::vector<MatchStages> networks;
  for (const double s : {1.0, -1.0}) {
    for (const double t : {1.0, -1.0}) {
      Builder pi(z0, frequency);
      pi.Shunt(s * q1 / r - y.X).Series((s * q1 + t * q2) * virtualR).Shunt(t * q2 / z0);
      if (pi.HasParts(3)) networks.push_back(pi.Stages());
    }
  }
  return networks;
}

std::vector<MatchStages> TNetworks(Impedance load, double z0, double frequency, double q) {
  const double virtualR = std::min(load.R, z0) * (q * q + 1);
  const double q1 = StepQ(virtualR / load.R);
  const double q2 = StepQ(virtualR / z0);
  std::vector<MatchStages> networks;
  for (const double s : {1.0, -1.0}) {
    for (const double t : {1.0, -1.0}) {
      Builder tee(z0, frequency);
      tee.Series(s * q1 * load.R - load.X).Shunt((s * q1 + t * q2) / virtualR).Series(t * q2 * z0);
      if (tee.HasParts(3)) networks.push_back(tee.Stages());
    }
  }
  return networks;
}

}  // namespace kalvex
