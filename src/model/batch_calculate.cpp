#include "model/batch_calculate.h"

#include <algorithm>
#include <cmath>

#include "model/element_arithmetic.h"
#include "model/feed_parts.h"
#include "model/reflection.h"
#include "model/vector_state.h"

namespace kalvex {
namespace {

using namespace arithmetic;

// Points go through the stages a block at a time, small enough to stay in
// the first-level cache between stages.
constexpr std::size_t kBlock = 256;

struct Block {
  std::size_t n = 0;
  alignas(64) double f[kBlock];
  alignas(64) double t[kBlock];  // the present line's tangent at each point
  alignas(64) double r[kBlock];
  alignas(64) double x[kBlock];
};

// Replaces each point's impedance with `through(f, t, in)`. The element's
// values are captured by value, so the loop reads nothing the block could hold.
template <class Through>
[[gnu::always_inline]] inline void EachPoint(Block& b, Through through) {
  for (std::size_t j = 0; j < b.n; ++j) {
    const Impedance z = through(b.f[j], b.t[j], Impedance{b.r[j], b.x[j]});
    b.r[j] = z.R;
    b.x[j] = z.X;
  }
}

// The tangent of minus the line's electrical length at each point. The
// angles are computed in vectors; the tangents are the library's, point by
// point, so that every file written keeps its digits to the last.
[[gnu::always_inline]] inline void LineTangents(const LineSlots& line, Block& b) {
  const LineAngle angle(line);
  if (!angle.scaled) {
    std::fill_n(b.t, b.n, std::tan(angle.fixed));
    return;
  }
  const double radiansPerMHz = angle.radiansPerMHz;
  for (std::size_t j = 0; j < b.n; ++j) b.t[j] = radiansPerMHz * (b.f[j] / kMHz);
  for (std::size_t j = 0; j < b.n; ++j) b.t[j] = std::tan(b.t[j]);
}

[[gnu::always_inline]] inline void CarryStage(const NetworkBatch::Stage& stage, Block& b) {
  const double s1 = stage.slot[1];
  const double s2 = stage.slot[2];
  const double s3 = stage.slot[3];
  const LineSlots line{s1, s2, s3};
  const LCSlots lc{s1, s2, s3, stage.slot[4]};
  switch (stage.type) {
    case SeriesCapacitor:
      return EachPoint(b, [=](double f, double, Impedance in) { return Series(in, CapacitorImpedance(s1, s2, f)); });
    case ShuntCapacitor:
      return EachPoint(b, [=](double f, double, Impedance in) { return Parallel(in, CapacitorImpedance(s1, s2, f)); });
    case SeriesInductor:
      return EachPoint(b, [=](double f, double, Impedance in) { return Series(in, InductorImpedance(s1, s2, f)); });
    case ShuntInductor:
      return EachPoint(b, [=](double f, double, Impedance in) { return Parallel(in, InductorImpedance(s1, s2, f)); });
    case SeriesLine:
      if (s3 == 0) return;  // a line of 0 ohms is passed over
      LineTangents(line, b);
      return EachPoint(b, [=](double, double t, Impedance in) { return ThroughLine(s3, t, in); });
    case SeriesShortedStub:
      LineTangents(line, b);
      return EachPoint(b, [=](double, double t, Impedance in) { return Series(in, StubImpedance(s3, t, 0)); });
    case SeriesOpenStub:
      LineTangents(line, b);
      return EachPoint(b, [=](double, double t, Impedance in) { return Series(in, StubImpedance(s3, t, kOpenEnd)); });
    case ShuntShortedStub:
      LineTangents(line, b);
      return EachPoint(b, [=](double, double t, Impedance in) { return Parallel(in, StubImpedance(s3, t, 0)); });
    case ShuntOpenStub:
      LineTangents(line, b);
      return EachPoint(b, [=](double, double t, Impedance in) { return Parallel(in, StubImpedance(s3, t, kOpenEnd)); });
    case ShuntSeriesLC:
      return EachPoint(b, [=](double f, double, Impedance in) { return ShuntSeriesLCAt(lc, f, in); });
    case SeriesParallelLC:
      return EachPoint(b, [=](double f, double, Impedance in) { return SeriesParallelLCAt(lc, f, in); });
    case SeriesResistor:
      return EachPoint(b, [=](double, double, Impedance in) { return Series(in, {s1, 0}); });
    case ShuntResistor: {
      const double resistance = ShuntResistance(s1);
      return EachPoint(b, [=](double, double, Impedance in) { return Parallel(in, {resistance, 0}); });
    }
    // The cable's complex hyperbolic tangent, the transformer and the
    // two-port block are the scalar calculation's, point by point: the same bits.
    case CoaxialCable: {
      const CableSlots cable = CableOf(stage.slot);
      return EachPoint(b, [=](double f, double, Impedance in) { return CableStage(cable, f, in); });
    }
    case Transformer: {
      const TransformerSlots transformer = TransformerOf(stage.slot);
      return EachPoint(b, [=](double f, double, Impedance in) { return TransformerStage(transformer, f, in); });
    }
    case TwoPort: {
      const TwoPortTable* table = stage.block.get();
      const BlockSlots block = BlockOf(stage.slot);
      return EachPoint(b, [=](double f, double, Impedance in) { return TwoPortStage(table, block, f, in); });
    }
    default:
      return;
  }
}

[[gnu::always_inline]] inline void CarryStages(const NetworkBatch::Stage* stages, std::size_t count,
                                                Block& b) {
  for (std::size_t s = 0; s < count; ++s) CarryStage(stages[s], b);
}

[[gnu::always_inline]] inline void PlottedRhoOf(const double* r, const double* x, std::size_t n,
                                                double systemZ, double* rho) {
  for (std::size_t k = 0; k < n; ++k) {
    const Gamma gamma = PlottedGamma(r[k], x[k], systemZ);
    rho[k] = std::sqrt(gamma.u * gamma.u + gamma.v * gamma.v);
  }
}

// Each loop built twice: for the baseline x86-64 processor (two doubles a
// vector) and for AVX2 (four, and VEX-encoded, which never waits on the upper
// halves of the registers). Neither uses fused multiply-add, so both give the
// same result to the bit.
struct Kernels {
  void (*carry)(const NetworkBatch::Stage*, std::size_t, Block&);
  void (*rho)(const double*, const double*, std::size_t, double, double*);
};

void CarryBaseline(const NetworkBatch::Stage* stages, std::size_t count, Block& b) {
  CarryStages(stages, count, b);
}
void RhoBaseline(const double* r, const double* x, std::size_t n, double systemZ, double* rho) {
  PlottedRhoOf(r, x, n, systemZ, rho);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void CarryAvx2(const NetworkBatch::Stage* stages, std::size_t count, Block& b) {
  CarryStages(stages, count, b);
}
[[gnu::target("avx2")]] void RhoAvx2(const double* r, const double* x, std::size_t n, double systemZ,
                                     double* rho) {
  PlottedRhoOf(r, x, n, systemZ, rho);
}
#endif

Kernels KernelsOf(VectorPath path) {
#if defined(__x86_64__)
  if (path == VectorPath::Avx2) return {CarryAvx2, RhoAvx2};
#endif
  (void)path;
  return {CarryBaseline, RhoBaseline};
}

VectorPath Widest() {
  static const VectorPath widest = VectorPaths().back();
  return widest;
}

bool IsLineOrStub(int16_t type) { return type >= SeriesLine && type <= ShuntOpenStub; }

}  // namespace

std::vector<VectorPath> VectorPaths() {
  std::vector<VectorPath> paths{VectorPath::Baseline};
#if defined(__x86_64__)
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx2")) paths.push_back(VectorPath::Avx2);
#endif
  return paths;
}

NetworkBatch::NetworkBatch(const Session& session) {
  for (int s = 1; s <= kLastStage; ++s) {
    const int16_t type = session.ElementType[s];
    if (IsPart(type)) stages_.push_back({type, session.Value[s], session.TwoPortBlocks[s].table});
  }
}

bool NetworkBatch::HasLines() const {
  return std::any_of(stages_.begin(), stages_.end(), [](const Stage& s) { return IsLineOrStub(s.type); });
}

void NetworkBatch::Calculate(std::span<const double> f, std::span<double> r, std::span<double> x) const {
  Calculate(f, r, x, Widest());
}

void NetworkBatch::Calculate(std::span<const double> f, std::span<double> r, std::span<double> x,
                             VectorPath path) const {
  ClearUpperVectorState();
  const auto carry = KernelsOf(path).carry;
  Block b;
  for (std::size_t first = 0; first < f.size(); first += kBlock) {
    b.n = std::min(kBlock, f.size() - first);
    std::copy_n(&f[first], b.n, b.f);
    std::copy_n(&r[first], b.n, b.r);
    std::copy_n(&x[first], b.n, b.x);
    carry(stages_.data(), stages_.size(), b);
    for (std::size_t j = 0; j < b.n; ++j) {
      if (b.f[j] <= 0) continue;  // keeps its load
      r[first + j] = b.r[j];
      x[first + j] = b.x[j];
    }
  }
}

void PlottedRho(std::span<const double> r, std::span<const double> x, double systemZ,
                std::span<double> rho, VectorPath path) {
  ClearUpperVectorState();
  KernelsOf(path).rho(r.data(), x.data(), rho.size(), systemZ, rho.data());
}

void PlottedRho(std::span<const double> r, std::span<const double> x, double systemZ,
                std::span<double> rho) {
  PlottedRho(r, x, systemZ, rho, Widest());
}

}  // namespace kalvex
