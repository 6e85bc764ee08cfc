#pragma once

namespace kalvex {

// An impedance R + jX in ohms.
struct Impedance {
  double R = 0;
  double X = 0;
};

// The electrical behaviour of each element type: given the element's slots, the
// working frequency f (Hz) and the impedance seen towards the load, each routine
// returns the impedance seen towards the load from the element's generator side.
// Only CalculateNetwork calls them.

Impedance SeriesCapacitorStage(double capacitance, double q, double f, Impedance in);
Impedance ShuntCapacitorStage(double capacitance, double q, double f, Impedance in);
Impedance SeriesInductorStage(double inductance, double q, double f, Impedance in);
Impedance ShuntInductorStage(double inductance, double q, double f, Impedance in);

struct LineSlots {
  double lengthDegrees;
  double referenceFrequency;  // the frequency at which the length is given, Hz
  double characteristicZ;
};
Impedance SeriesLineStage(const LineSlots& line, double f, Impedance in);
Impedance SeriesShortedStubStage(const LineSlots& stub, double f, Impedance in);
Impedance SeriesOpenStubStage(const LineSlots& stub, double f, Impedance in);
Impedance ShuntShortedStubStage(const LineSlots& stub, double f, Impedance in);
Impedance ShuntOpenStubStage(const LineSlots& stub, double f, Impedance in);

struct LCSlots {
  double inductance;
  double inductorQ;
  double capacitance;
  double capacitorQ;
};
Impedance ShuntSeriesLCStage(const LCSlots& lc, double f, Impedance in);
Impedance SeriesParallelLCStage(const LCSlots& lc, double f, Impedance in);

Impedance SeriesResistorStage(double resistance, Impedance in);
Impedance ShuntResistorStage(double resistance, Impedance in);

}  // namespace kalvex
