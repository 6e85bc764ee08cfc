#pragma once

#include <cmath>
#include <numbers>

#include "model/elements.h"

// The arithmetic of each element at one frequency, shared by the calculation
// of one point (elements.cpp) and of many at once (batch_calculate.cpp), so
// that both give the same result to the bit. Every routine is written without
// branches between points: special cases are chosen after both sides are
// computed, which lets the compiler put several frequencies in one vector.
// The line routines take the tangent of minus the electrical length instead
// of the frequency: the batch fills a whole block of tangents before it
// carries the impedances through the line.
namespace kalvex::arithmetic {

inline constexpr double kDegreesPerRadian = 57.2957795130823;
inline constexpr double kMHz = 1'000'000;
inline constexpr double kDenominatorFloor = 1e-39;
// Normalised resistance of a stub's open far end; also what an element that
// behaves as an open circuit (a capacitance of 0, a shunt branch with no
// admittance left) is given, so that every result stays finite.
inline constexpr double kOpenEnd = 1e20;
inline constexpr double kShuntResistorFloor = 1e-20;

inline double Omega(double f) { return 2 * std::numbers::pi * f; }

// A capacitance of 0 is an open circuit: its reactance is held at the open-end
// value instead of becoming infinite.
inline double CapacitiveReactance(double capacitance, double f) {
  const double omegaC = Omega(f) * capacitance;
  const double x = -1 / omegaC;
  const double held = std::fabs(x) == INFINITY ? std::copysign(kOpenEnd, x) : x;
  return omegaC == 0 ? -kOpenEnd : held;
}

inline double InductiveReactance(double inductance, double f) { return Omega(f) * inductance; }

// Loss resistance |X| / Q. A Q of 0 means no loss was given:
// the part is then taken as ideal rather than as an infinite resistance.
inline double AbsoluteLoss(double reactance, double q) {
  const double loss = std::fabs(reactance / q);
  return q == 0 ? 0 : loss;
}

// The series and shunt inductors keep the sign of X / Q in their loss.
inline double SignedLoss(double reactance, double q) {
  const double loss = reactance / q;
  return q == 0 ? 0 : loss;
}

inline Impedance Series(Impedance in, Impedance element) {
  return {in.R + element.R, in.X + element.X};
}

// Two impedances in parallel, combined by their admittances. A short across
// anything is a short; two branches whose admittances cancel form an open.
inline Impedance Parallel(Impedance in, Impedance element) {
  const double elementSquared = element.R * element.R + element.X * element.X;
  const double inSquared = in.R * in.R + in.X * in.X;
  const double gp = element.R / elementSquared;
  const double bp = -element.X / elementSquared;
  const double gin = in.R / inSquared;
  const double bin = -in.X / inSquared;
  const double g = gin + gp;
  const double b = bin + bp;
  const double admittanceSquared = g * g + b * b;
  const bool shorted = elementSquared == 0 || inSquared == 0;
  const bool open = admittanceSquared == 0;
  const double r = open ? kOpenEnd : g / admittanceSquared;
  const double x = open ? 0 : -b / admittanceSquared;
  return {shorted ? 0 : r, shorted ? 0 : x};
}

// Minus a line's electrical length in radians at f: in proportion to f from
// its reference frequency, or `fixed` where that is 0, which gives no scaling:
// the length is then taken as entered at every frequency.
struct LineAngle {
  bool scaled = false;
  double radiansPerMHz = 0;  // negative: minus the length
  double fixed = 0;

  explicit LineAngle(const LineSlots& line) {
    const double referenceMHz = line.referenceFrequency / kMHz;
    scaled = referenceMHz != 0;
    if (scaled) {
      const double degreesPerMHz = line.lengthDegrees / referenceMHz;
      radiansPerMHz = -1 * (degreesPerMHz / kDegreesPerRadian);
    } else {
      fixed = -line.lengthDegrees / kDegreesPerRadian;
    }
  }
  double At(double f) const { return scaled ? radiansPerMHz * (f / kMHz) : fixed; }
};

// The normalised impedance r + jx seen through a lossless line whose tangent
// of minus its length is t: (z + j tan L) / (1 + j z tan L).
inline Impedance TransformThroughLine(double r, double x, double t) {
  const double n = r * (t * t + 1);
  const double computed = ((r * r + x * x) * t + 2 * x) * t + 1;
  const double d = computed == 0 ? kDenominatorFloor : computed;
  return {n / d, ((r * r + x * x - t * x - 1) * t + x) / d};
}

inline Impedance StubImpedance(double characteristicZ, double t, double farEndR) {
  const Impedance z = TransformThroughLine(farEndR, 0, t);
  return {z.R * characteristicZ, z.X * characteristicZ};
}

// A line of 0 ohms normalises nothing; its caller passes it over.
inline Impedance ThroughLine(double characteristicZ, double t, Impedance in) {
  const double z0 = characteristicZ;
  const Impedance z = TransformThroughLine(in.R / z0, in.X / z0, t);
  return {z.R * z0, z.X * z0};
}

inline Impedance CapacitorImpedance(double capacitance, double q, double f) {
  const double x = CapacitiveReactance(capacitance, f);
  return {AbsoluteLoss(x, q), x};
}

inline Impedance InductorImpedance(double inductance, double q, double f) {
  const double x = InductiveReactance(inductance, f);
  return {SignedLoss(x, q), x};
}

// The LC pairs take the absolute loss for both parts.
struct LCBranches {
  Impedance inductor;
  Impedance capacitor;
};
inline LCBranches LCBranchImpedances(const LCSlots& lc, double f) {
  const double xl = InductiveReactance(lc.inductance, f);
  const double xc = CapacitiveReactance(lc.capacitance, f);
  return {{AbsoluteLoss(xl, lc.inductorQ), xl}, {AbsoluteLoss(xc, lc.capacitorQ), xc}};
}

inline Impedance ShuntSeriesLCAt(const LCSlots& lc, double f, Impedance in) {
  const LCBranches branches = LCBranchImpedances(lc, f);
  return Parallel(in, Series(branches.inductor, branches.capacitor));
}

inline Impedance SeriesParallelLCAt(const LCSlots& lc, double f, Impedance in) {
  const LCBranches branches = LCBranchImpedances(lc, f);
  return Series(in, Parallel(branches.inductor, branches.capacitor));
}

inline double ShuntResistance(double resistance) {
  return resistance > 0 ? resistance : kShuntResistorFloor;
}

}  // namespace kalvex::arithmetic
