#include "model/elements.h"

#include <cmath>
#include <numbers>

namespace kalvex {
namespace {

constexpr double kDegreesPerRadian = 57.2957795130823;
constexpr double kMHz = 1'000'000;
constexpr double kDenominatorFloor = 1e-39;
// Normalised resistance of a stub's open far end; also what an element that
// behaves as an open circuit (a capacitance of 0, a shunt branch with no
// admittance left) is given, so that every result stays finite.
constexpr double kOpenEnd = 1e20;
constexpr double kShuntResistorFloor = 1e-20;

double Omega(double f) { return 2 * std::numbers::pi * f; }

// A capacitance of 0 is an open circuit: its reactance is held at the open-end
// value instead of becoming infinite.
double CapacitiveReactance(double capacitance, double f) {
  const double omegaC = Omega(f) * capacitance;
  if (omegaC == 0) return -kOpenEnd;
  const double x = -1 / omegaC;
  return std::isinf(x) ? std::copysign(kOpenEnd, x) : x;
}

double InductiveReactance(double inductance, double f) { return Omega(f) * inductance; }

// Loss resistance |X| / Q. A Q of 0 means no loss was given:
// the part is then taken as ideal rather than as an infinite resistance.
double AbsoluteLoss(double reactance, double q) {
  return q == 0 ? 0 : std::fabs(reactance / q);
}

// The series and shunt inductors keep the sign of X / Q in their loss.
double SignedLoss(double reactance, double q) { return q == 0 ? 0 : reactance / q; }

Impedance Series(Impedance in, Impedance element) {
  return {in.R + element.R, in.X + element.X};
}

// Two impedances in parallel, combined by their admittances. A short across
// anything is a short; two branches whose admittances cancel form an open.
Impedance Parallel(Impedance in, Impedance element) {
  const double elementSquared = element.R * element.R + element.X * element.X;
  const double inSquared = in.R * in.R + in.X * in.X;
  if (elementSquared == 0 || inSquared == 0) return {0, 0};
  const double gp = element.R / elementSquared;
  const double bp = -element.X / elementSquared;
  const double gin = in.R / inSquared;
  const double bin = -in.X / inSquared;
  const double g = gin + gp;
  const double b = bin + bp;
  const double admittanceSquared = g * g + b * b;
  if (admittanceSquared == 0) return {kOpenEnd, 0};
  return {g / admittanceSquared, -b / admittanceSquared};
}

// tan of minus the electrical length at f. A reference frequency of 0 gives no
// scaling: the length is then taken as entered at every frequency.
double LineTangent(const LineSlots& line, double f) {
  const double referenceMHz = line.referenceFrequency / kMHz;
  double theta;
  if (referenceMHz == 0) {
    theta = -line.lengthDegrees / kDegreesPerRadian;
  } else {
    const double degreesPerMHz = line.lengthDegrees / referenceMHz;
    const double radiansPerMHz = degreesPerMHz / kDegreesPerRadian;
    theta = -1 * radiansPerMHz * (f / kMHz);
  }
  return std::tan(theta);
}

// The normalised impedance r + jx seen through a lossless line whose tangent
// of minus its length is t: (z + j tan L) / (1 + j z tan L).
Impedance TransformThroughLine(double r, double x, double t) {
  const double n = r * (t * t + 1);
  double d = ((r * r + x * x) * t + 2 * x) * t + 1;
  if (d == 0) d = kDenominatorFloor;
  return {n / d, ((r * r + x * x - t * x - 1) * t + x) / d};
}

Impedance StubImpedance(const LineSlots& stub, double f, double farEndR) {
  const Impedance z = TransformThroughLine(farEndR, 0, LineTangent(stub, f));
  return {z.R * stub.characteristicZ, z.X * stub.characteristicZ};
}

Impedance CapacitorImpedance(double capacitance, double q, double f) {
  const double x = CapacitiveReactance(capacitance, f);
  return {AbsoluteLoss(x, q), x};
}

Impedance InductorImpedance(double inductance, double q, double f) {
  const double x = InductiveReactance(inductance, f);
  return {SignedLoss(x, q), x};
}

// The LC pairs take the absolute loss for both parts.
struct LCBranches {
  Impedance inductor;
  Impedance capacitor;
};
LCBranches LCBranchImpedances(const LCSlots& lc, double f) {
  const double xl = InductiveReactance(lc.inductance, f);
  const double xc = CapacitiveReactance(lc.capacitance, f);
  return {{AbsoluteLoss(xl, lc.inductorQ), xl}, {AbsoluteLoss(xc, lc.capacitorQ), xc}};
}

}  // namespace

Impedance SeriesCapacitorStage(double capacitance, double q, double f, Impedance in) {
  return Series(in, CapacitorImpedance(capacitance, q, f));
}

Impedance ShuntCapacitorStage(double capacitance, double q, double f, Impedance in) {
  return Parallel(in, CapacitorImpedance(capacitance, q, f));
}

Impedance SeriesInductorStage(double inductance, double q, double f, Impedance in) {
  return Series(in, InductorImpedance(inductance, q, f));
}

Impedance ShuntInductorStage(double inductance, double q, double f, Impedance in) {
  return Parallel(in, InductorImpedance(inductance, q, f));
}

Impedance SeriesLineStage(const LineSlots& line, double f, Impedance in) {
  // A line of 0 ohms normalises nothing; it is passed over.
  if (line.characteristicZ == 0) return in;
  const double z0 = line.characteristicZ;
  const Impedance z = TransformThroughLine(in.R / z0, in.X / z0, LineTangent(line, f));
  return {z.R * z0, z.X * z0};
}

Impedance SeriesShortedStubStage(const LineSlots& stub, double f, Impedance in) {
  return Series(in, StubImpedance(stub, f, 0));
}

Impedance SeriesOpenStubStage(const LineSlots& stub, double f, Impedance in) {
  return Series(in, StubImpedance(stub, f, kOpenEnd));
}

Impedance ShuntShortedStubStage(const LineSlots& stub, double f, Impedance in) {
  return Parallel(in, StubImpedance(stub, f, 0));
}

Impedance ShuntOpenStubStage(const LineSlots& stub, double f, Impedance in) {
  return Parallel(in, StubImpedance(stub, f, kOpenEnd));
}

Impedance ShuntSeriesLCStage(const LCSlots& lc, double f, Impedance in) {
  const LCBranches branches = LCBranchImpedances(lc, f);
  return Parallel(in, Series(branches.inductor, branches.capacitor));
}

Impedance SeriesParallelLCStage(const LCSlots& lc, double f, Impedance in) {
  const LCBranches branches = LCBranchImpedances(lc, f);
  return Series(in, Parallel(branches.inductor, branches.capacitor));
}

Impedance SeriesResistorStage(double resistance, Impedance in) {
  return Series(in, {resistance, 0});
}

Impedance ShuntResistorStage(double resistance, Impedance in) {
  return Parallel(in, {resistance > 0 ? resistance : kShuntResistorFloor, 0});
}

}  // namespace kalvex
