#include "model/two_port.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "model/format.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;

// A 2 x 2 complex matrix in row order, for the reference changes.
using Matrix2 = std::array<Complex, 4>;

Matrix2 Product(const Matrix2& a, const Matrix2& b) {
  return {a[0] * b[0] + a[1] * b[2], a[0] * b[1] + a[1] * b[3], a[2] * b[0] + a[3] * b[2],
          a[2] * b[1] + a[3] * b[3]};
}

Matrix2 Inverse(const Matrix2& m) {
  const Complex determinant = m[0] * m[3] - m[1] * m[2];
  return {m[3] / determinant, -m[1] / determinant, -m[2] / determinant, m[0] / determinant};
}

// The phase `next` nearest to `previous` among its turns by whole circles.
double Unwrapped(double previous, double next) {
  constexpr double kTurn = 2 * std::numbers::pi;
  return next + kTurn * std::nearbyint((previous - next) / kTurn);
}

}  // namespace

Abcd Cascade(const Abcd& first, const Abcd& second) {
  return {first.A * second.A + first.B * second.C, first.A * second.B + first.B * second.D,
          first.C * second.A + first.D * second.C, first.C * second.B + first.D * second.D};
}

Abcd SeriesAbcd(Complex impedance) { return {1.0, impedance, 0.0, 1.0}; }

Abcd ShuntAbcd(Complex admittance) { return {1.0, 0.0, admittance, 1.0}; }

Impedance SeenThrough(const Abcd& m, Impedance load) {
  const Complex z(load.R, load.X);
  const Complex seen = (m.A * z + m.B) / (m.C * z + m.D);
  return {seen.real(), seen.imag()};
}

Abcd AbcdOfS(const SMatrix& m, double z0) {
  const Complex s11 = m.S11(), s12 = m.S12(), s21 = m.S21(), s22 = m.S22();
  const Complex twice = 2.0 * s21;
  return {((1.0 + s11) * (1.0 - s22) + s12 * s21) / twice,
          z0 * ((1.0 + s11) * (1.0 + s22) - s12 * s21) / twice,
          ((1.0 - s11) * (1.0 - s22) - s12 * s21) / (twice * z0),
          ((1.0 - s11) * (1.0 + s22) + s12 * s21) / twice};
}

SMatrix SOfAbcd(const Abcd& m, double z0) {
  const Complex b = m.B / z0;
  const Complex c = m.C * z0;
  const Complex sum = m.A + b + c + m.D;
  return {{(m.A + b - c - m.D) / sum, 2.0 * (m.A * m.D - m.B * m.C) / sum, 2.0 / sum,
           (-m.A + b - c + m.D) / sum}};
}

SMatrix SOfImpedances(const Matrix2& z, double z0) {
  // S = (Z - z0)(Z + z0)^-1
  Matrix2 minus = z, plus = z;
  for (int k : {0, 3}) {
    minus[k] -= z0;
    plus[k] += z0;
  }
  return {Product(minus, Inverse(plus))};
}

SMatrix SOfAdmittances(const Matrix2& y, double z0) {
  // S = (1 - z0 Y)(1 + z0 Y)^-1
  Matrix2 minus{}, plus{};
  for (int k = 0; k < 4; ++k) {
    minus[k] = -z0 * y[k];
    plus[k] = z0 * y[k];
  }
  for (int k : {0, 3}) {
    minus[k] += 1.0;
    plus[k] += 1.0;
  }
  return {Product(minus, Inverse(plus))};
}

SMatrix Swapped(const SMatrix& m) { return {{m.S22(), m.S21(), m.S12(), m.S11()}}; }

SMatrix Renormalised(const SMatrix& m, std::array<double, 2> from, std::array<double, 2> to) {
  // With real references the new waves are a' = P a + M b and b' = M a + P b
  // per port, so S' = (M + P S)(P + M S)^-1.
  Matrix2 p{}, n{};
  for (int port = 0; port < 2; ++port) {
    const double root = 2 * std::sqrt(from[port] * to[port]);
    p[port * 3] = (from[port] + to[port]) / root;
    n[port * 3] = (from[port] - to[port]) / root;
  }
  const Matrix2 mPlusPs = [&] {
    Matrix2 sum = Product(p, m.s);
    for (int k = 0; k < 4; ++k) sum[k] += n[k];
    return sum;
  }();
  Matrix2 pPlusMs = Product(n, m.s);
  for (int k = 0; k < 4; ++k) pPlusMs[k] += p[k];
  return {Product(mPlusPs, Inverse(pPlusMs))};
}

TwoPortTable::TwoPortTable(std::vector<Point> points, double reference) : reference_(reference) {
  for (const Point& point : points) {
    std::array<double, 4> magnitude{}, phase{};
    for (int k = 0; k < 4; ++k) {
      magnitude[k] = std::abs(point.s.s[k]);
      phase[k] = std::arg(point.s.s[k]);
      if (!phase_.empty()) phase[k] = Unwrapped(phase_.back()[k], phase[k]);
    }
    frequencies_.push_back(point.frequency);
    magnitude_.push_back(magnitude);
    phase_.push_back(phase);
  }
}

std::optional<SMatrix> TwoPortTable::At(double f) const {
  if (!(f >= Lowest() && f <= Highest())) return std::nullopt;
  const auto above = std::lower_bound(frequencies_.begin(), frequencies_.end(), f);
  const std::size_t hi = static_cast<std::size_t>(above - frequencies_.begin());
  SMatrix m;
  if (frequencies_[hi] == f) {
    for (int k = 0; k < 4; ++k) m.s[k] = std::polar(magnitude_[hi][k], phase_[hi][k]);
    return m;
  }
  const std::size_t lo = hi - 1;
  const double t = (f - frequencies_[lo]) / (frequencies_[hi] - frequencies_[lo]);
  for (int k = 0; k < 4; ++k) {
    const double magnitude = magnitude_[lo][k] + t * (magnitude_[hi][k] - magnitude_[lo][k]);
    const double phase = phase_[lo][k] + t * (phase_[hi][k] - phase_[lo][k]);
    m.s[k] = std::polar(magnitude, phase);
  }
  return m;
}

std::string CoveredRange(const TwoPortTable& table) {
  return HertzText(table.Lowest()) + " to " + HertzText(table.Highest());
}

}  // namespace kalvex
