#pragma once

#include <cmath>
#include <numbers>

namespace kalvex {

// Beyond this many radians LineTangent takes the library's tan: the
// reduction below stays exact only while n · kHalfPi1 does (n below 2^26).
inline constexpr double kTangentLimit = 1e8;

// tan x for |x| up to kTangentLimit, within a few units in the last place of
// std::tan, written without branches or calls so that a loop of it becomes
// vector code; the one-point calculation takes it too, so that both agree to
// the bit. x is reduced by the nearest multiple n of π/2, taken in four
// parts (the first three short enough that n times them is exact), to z in
// [−π/4, π/4]; tan z comes from a rational approximation there, and tan x is
// tan z for an even n and −1/tan z for an odd one.
inline double Tangent(double x) {
  // Adding and taking away 1.5 · 2^52 rounds a double below 2^51 to an integer.
  constexpr double kRound = 6755399441055744.0;
  constexpr double kHalfPi1 = 0x1.921fb54p+0;  // 27 bits
  constexpr double kHalfPi2 = 0x1.10b461p-30;  // 25 bits
  constexpr double kHalfPi3 = 0x1.a62633p-58;  // 25 bits
  constexpr double kHalfPi4 = 0x1.45c06e0e68948p-86;
  const double n = (x * (2 / std::numbers::pi) + kRound) - kRound;
  const double z = (((x - n * kHalfPi1) - n * kHalfPi2) - n * kHalfPi3) - n * kHalfPi4;
  const double zz = z * z;
  const double p = (-1.30936939181383777646e4 * zz + 1.15351664838587416140e6) * zz -
                   1.79565251976484877988e7;
  const double q = ((((zz + 1.36812963470692954678e4) * zz - 1.32089234440210967447e6) * zz +
                     2.50083801823357915839e7) * zz) -
                   5.38695755929454629881e7;
  const double t = z + z * (zz * p / q);
  const double half = (n * 0.5 + kRound) - kRound;
  return n == 2 * half ? t : -1 / t;
}

// The tangent of a line's angle as every calculation takes it.
inline double LineTangent(double theta) {
  return std::fabs(theta) <= kTangentLimit ? Tangent(theta) : std::tan(theta);
}

}  // namespace kalvex
