#include "model/feed_parts.h"

#include <cmath>
#include <complex>
#include <numbers>

namespace kalvex {
namespace {

using Complex = std::complex<double>;

constexpr double kSpeedOfLight = 299'792'458;  // m/s
constexpr double kMHz = 1'000'000;
constexpr double kDbPerNeper = 8.685889638065037;  // 20 / ln 10
// What a division by an exactly cancelling denominator is floored at, as the
// lossless line does; a lossy cable never meets it.
constexpr double kDenominatorFloor = 1e-39;
constexpr double kOpenEnd = 1e20;

double Omega(double f) { return 2 * std::numbers::pi * f; }

Impedance ToImpedance(Complex z) { return {z.real(), z.imag()}; }

}  // namespace

CableSlots CableOf(const std::array<double, kSlotCount>& slot) {
  return {slot[1], slot[2], slot[3], slot[4], slot[5]};
}

double CableLossPer100m(const CableSlots& cable, double f) {
  const double mhz = f / kMHz;
  return cable.k1 * std::sqrt(std::fabs(mhz)) + cable.k2 * mhz;
}

double CableMatchedLossDb(const CableSlots& cable, double f) {
  return CableLossPer100m(cable, f) * cable.lengthMetres / 100;
}

LinePerMetre CablePerMetre(const CableSlots& cable, double f) {
  const double alpha = CableLossPer100m(cable, f) / 100 / kDbPerNeper;  // Np/m
  const double z0 = cable.characteristicZ;
  const double secondsPerMetre = 1 / (kSpeedOfLight * cable.velocityFactor);
  return {alpha * z0, z0 * secondsPerMetre, alpha / z0, secondsPerMetre / z0};
}

// gamma l: the loss and phase over the cable's length.
Complex Propagation(const CableSlots& cable, double f) {
  const double alpha = CableLossPer100m(cable, f) / 100 / kDbPerNeper;
  const double beta = Omega(f) / (kSpeedOfLight * cable.velocityFactor);
  return Complex(alpha, beta) * cable.lengthMetres;
}

Impedance CableStage(const CableSlots& cable, double f, Impedance in) {
  if (cable.characteristicZ <= 0 || cable.velocityFactor <= 0) return in;
  const Complex t = std::tanh(Propagation(cable, f));
  const Complex z0 = cable.characteristicZ;
  const Complex load(in.R, in.X);
  Complex denominator = z0 + load * t;
  if (denominator == Complex(0)) denominator = kDenominatorFloor;
  return ToImpedance(z0 * (load + z0 * t) / denominator);
}

double CablePowerRatio(const CableSlots& cable, double f, Impedance load) {
  if (cable.characteristicZ <= 0 || cable.velocityFactor <= 0) return 1;
  const Complex gl = Propagation(cable, f);
  // A current of 1 into the load; the ends' voltages and currents follow
  // from the line's chain matrix.
  const Complex v(load.R, load.X);
  const double z0 = cable.characteristicZ;
  const Complex vIn = v * std::cosh(gl) + z0 * std::sinh(gl);
  const Complex iIn = v * std::sinh(gl) / z0 + std::cosh(gl);
  return (vIn * std::conj(iIn)).real() / load.R;
}

Abcd CableAbcd(const CableSlots& cable, double f) {
  if (cable.characteristicZ <= 0 || cable.velocityFactor <= 0) return {};
  const Complex gammaL = Propagation(cable, f);
  const double z0 = cable.characteristicZ;
  return {std::cosh(gammaL), z0 * std::sinh(gammaL), std::sinh(gammaL) / z0, std::cosh(gammaL)};
}

TransformerSlots TransformerOf(const std::array<double, kSlotCount>& slot) {
  return {slot[1], slot[2], slot[3]};
}

Impedance TransformerStage(const TransformerSlots& transformer, double f, Impedance in) {
  if (transformer.ratio <= 0) return in;
  Complex z = Complex(in.R, in.X) / transformer.ratio;
  if (transformer.magnetisingH > 0) {
    const Complex magnetising(0, Omega(f) * transformer.magnetisingH);
    // A capacitive load that resonates with the winding leaves an open
    // circuit, held finite as the other parts hold theirs.
    const Complex sum = z + magnetising;
    z = sum == Complex(0) ? Complex(kOpenEnd) : z * magnetising / sum;
  }
  if (transformer.leakageH > 0) z += Complex(0, Omega(f) * transformer.leakageH);
  return ToImpedance(z);
}

bool IsFeedPart(int16_t type) { return type == CoaxialCable || type == Transformer; }

int LastFeedStage(const Session& session) {
  for (int stage = kLastStage; stage >= 1; --stage) {
    if (IsFeedPart(session.ElementType[stage])) return stage;
  }
  return 0;
}

Abcd TransformerAbcd(const TransformerSlots& transformer, double f) {
  if (transformer.ratio <= 0) return {};
  const double root = std::sqrt(transformer.ratio);
  Abcd m{1 / root, 0.0, 0.0, root};
  if (transformer.magnetisingH > 0) m = Cascade(ShuntAbcd(1.0 / Complex(0, Omega(f) * transformer.magnetisingH)), m);
  if (transformer.leakageH > 0) m = Cascade(SeriesAbcd(Complex(0, Omega(f) * transformer.leakageH)), m);
  return m;
}

}  // namespace kalvex
