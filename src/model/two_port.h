#pragma once

#include <array>
#include <complex>
#include <optional>
#include <string>
#include <vector>

#include "model/elements.h"

namespace kalvex {

// The chain (ABCD) matrix of a two-port, port 1 towards the generator and
// port 2 towards the load: V1 = A V2 + B I2, I1 = C V2 + D I2, so that a load
// ZL on port 2 is seen from port 1 as (A ZL + B) / (C ZL + D).
struct Abcd {
  std::complex<double> A = 1;
  std::complex<double> B = 0;
  std::complex<double> C = 0;
  std::complex<double> D = 1;
};

// `first` nearer the generator, `second` behind it towards the load.
Abcd Cascade(const Abcd& first, const Abcd& second);
Abcd SeriesAbcd(std::complex<double> impedance);
Abcd ShuntAbcd(std::complex<double> admittance);
Impedance SeenThrough(const Abcd& m, Impedance load);

// The scattering parameters of a two-port at one real reference impedance,
// in the order of the rows and columns: S[0] S11, S[1] S12, S[2] S21, S[3] S22.
struct SMatrix {
  std::array<std::complex<double>, 4> s{};
  std::complex<double> S11() const { return s[0]; }
  std::complex<double> S12() const { return s[1]; }
  std::complex<double> S21() const { return s[2]; }
  std::complex<double> S22() const { return s[3]; }
};

// The conversions at reference impedance z0 (ohms, real). A two-port whose
// S21 is 0 has no chain matrix: its elements come out infinite.
Abcd AbcdOfS(const SMatrix& m, double z0);
SMatrix SOfAbcd(const Abcd& m, double z0);

// S at reference z0 of a two-port given by its impedance matrix (ohms) or
// its admittance matrix (siemens), each in row order.
SMatrix SOfImpedances(const std::array<std::complex<double>, 4>& z, double z0);
SMatrix SOfAdmittances(const std::array<std::complex<double>, 4>& y, double z0);

// The same two-port with its ports exchanged.
SMatrix Swapped(const SMatrix& m);

// S at port references z1, z2 (real, ohms) turned to references w1, w2: the
// waves of each port re-split at the new impedance, which keeps a two-port
// without transmission (S21 = S12 = 0) as it is.
SMatrix Renormalised(const SMatrix& m, std::array<double, 2> from, std::array<double, 2> to);

// A measured or published two-port: its S parameters at the frequencies of
// its file, at one reference impedance, sorted by frequency.
class TwoPortTable {
 public:
  struct Point {
    double frequency;
    SMatrix s;
  };
  // `points` sorted by strictly rising frequency, at least one.
  TwoPortTable(std::vector<Point> points, double reference);

  double Lowest() const { return frequencies_.front(); }
  double Highest() const { return frequencies_.back(); }
  double Reference() const { return reference_; }
  std::size_t Size() const { return frequencies_.size(); }

  // S at f, between the file's frequencies interpolated in magnitude and
  // unwrapped phase: a block of some electrical length turns its phases by
  // many degrees from one point to the next, and the chord a real and
  // imaginary interpolation cuts across that turn would make a lossless
  // block lossy between the points. Nothing outside the file's range.
  std::optional<SMatrix> At(double f) const;

 private:
  std::vector<double> frequencies_;
  std::vector<std::array<double, 4>> magnitude_;
  std::vector<std::array<double, 4>> phase_;  // radians, unwrapped along the frequencies
  double reference_;
};

// "1 MHz to 100 MHz": the frequencies a block's file covers, for messages.
std::string CoveredRange(const TwoPortTable& table);

}  // namespace kalvex
