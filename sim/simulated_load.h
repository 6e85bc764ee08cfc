#pragma once

#include <complex>
#include <string>
#include <vector>

namespace kalvex {

// The load a simulated analyser measures: an antenna modelled as a series
// RLC circuit (its resistance at resonance, its resonant frequency and its Q),
// or the points of a load-data or one-port Touchstone file, taken linearly
// between them and held beyond the first and the last.
class SimulatedLoad {
 public:
  static SimulatedLoad Antenna(double resistance, double resonance, double q);
  // The points of FILE; none (an empty table) when it gives none, with the
  // reader's messages in `messages`.
  static SimulatedLoad FromFile(const std::string& name, std::string& messages);

  std::complex<double> ImpedanceAt(double frequency) const;
  bool Empty() const { return isTable_ && table_.empty(); }
  // One line about the load, for the `info` answer.
  const std::string& Description() const { return description_; }

 private:
  struct Point {
    double frequency;
    std::complex<double> impedance;
  };
  bool isTable_ = false;
  std::vector<Point> table_;
  double resistance_ = 0, resonance_ = 0, q_ = 0;
  std::string description_;
};

// S11 of an impedance at the analyser's 50 ohm reference.
std::complex<double> S11Of(std::complex<double> impedance);

}  // namespace kalvex
