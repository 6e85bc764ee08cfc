#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "model/session.h"

namespace kalvex {

// The builds of the batched loops: for every x86-64 processor, and for those
// with AVX2. Each gives the same result to the bit.
enum class VectorPath { Baseline, Avx2 };

// The builds this processor runs, the widest last (the one used).
std::vector<VectorPath> VectorPaths();

// The network's stages (types and values) read once from a session, and
// carried through at many frequencies at a time: what every sweep, band and
// search uses. The points are laid out as arrays of frequencies, resistances
// and reactances, so that several frequencies share each vector instruction;
// the widest vectors the processor has are chosen when the program starts.
// The arithmetic is CalculateNetwork's, in the same order and without fused
// multiply-add, so each point is CalculateNetwork's result to the bit, on
// every processor alike.
class NetworkBatch {
 public:
  explicit NetworkBatch(const Session& session);

  // Carries the load at each point (r[k] + j x[k] on entry) through stages
  // 1..5 at f[k] and leaves the impedance seen from the generator in r, x.
  // A point whose frequency is 0 or less keeps its load, as CalculateNetwork
  // leaves it. The three arrays have the same length.
  void Calculate(std::span<const double> f, std::span<double> r, std::span<double> x) const;
  // The same on a given build of the loops, one of VectorPaths().
  void Calculate(std::span<const double> f, std::span<double> r, std::span<double> x,
                 VectorPath path) const;

  // Whether a line or stub is among the stages: calculating one sets the
  // session's VelocityFactor to 1, as CalculateNetwork does.
  bool HasLines() const;

  struct Stage {
    int16_t type = Empty;
    std::array<double, kSlotCount> slot{};
    std::shared_ptr<const TwoPortTable> block;  // a two-port block's data
  };

 private:
  std::vector<Stage> stages_;  // from the load towards the generator, empty ones left out
};

// |Γ| of each point where the chart plots it, PlotImpedance's rho.
void PlottedRho(std::span<const double> r, std::span<const double> x, double systemZ,
                std::span<double> rho);
void PlottedRho(std::span<const double> r, std::span<const double> x, double systemZ,
                std::span<double> rho, VectorPath path);

}  // namespace kalvex
