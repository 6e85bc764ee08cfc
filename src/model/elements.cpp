#include "model/elements.h"

#include <cmath>

#include "model/element_arithmetic.h"

namespace kalvex {
namespace {

using namespace arithmetic;

double TangentAt(const LineSlots& line, double f) { return std::tan(LineAngle(line).At(f)); }

Impedance StubAt(const LineSlots& stub, double f, double farEndR) {
  return StubImpedance(stub.characteristicZ, TangentAt(stub, f), farEndR);
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
  if (line.characteristicZ == 0) return in;
  return ThroughLine(line.characteristicZ, TangentAt(line, f), in);
}

Impedance SeriesShortedStubStage(const LineSlots& stub, double f, Impedance in) {
  return Series(in, StubAt(stub, f, 0));
}

Impedance SeriesOpenStubStage(const LineSlots& stub, double f, Impedance in) {
  return Series(in, StubAt(stub, f, kOpenEnd));
}

Impedance ShuntShortedStubStage(const LineSlots& stub, double f, Impedance in) {
  return Parallel(in, StubAt(stub, f, 0));
}

Impedance ShuntOpenStubStage(const LineSlots& stub, double f, Impedance in) {
  return Parallel(in, StubAt(stub, f, kOpenEnd));
}

Impedance ShuntSeriesLCStage(const LCSlots& lc, double f, Impedance in) {
  return ShuntSeriesLCAt(lc, f, in);
}

Impedance SeriesParallelLCStage(const LCSlots& lc, double f, Impedance in) {
  return SeriesParallelLCAt(lc, f, in);
}

Impedance SeriesResistorStage(double resistance, Impedance in) {
  return Series(in, {resistance, 0});
}

Impedance ShuntResistorStage(double resistance, Impedance in) {
  return Parallel(in, {ShuntResistance(resistance), 0});
}

}  // namespace kalvex
