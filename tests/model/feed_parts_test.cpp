#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "model/calculate.h"
#include "model/feed_parts.h"
#include "model/reflection.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;

Complex Through(int16_t type, std::array<double, 6> slots, double f, Complex load) {
  return testing::InputAt(testing::WithStages(testing::SessionOnLoad(load.real(), load.imag(), f), {{type, slots}}), f);
}

double ReflectionMagnitude(Complex z, double z0) { return std::abs((z - z0) / (z + z0)); }

struct Cable {
  const char* name;
  double metres, z0, vf, k1, k2, f;
  // The matched loss over the length, worked out by hand from the cable's figures.
  double lossDb;
};

// k1 sqrt(f / 1 MHz) + k2 (f / 1 MHz) dB per 100 m, times the length.
const Cable kCables[] = {
    {"30 m of 50 ohm at 28 MHz", 30, 50, 0.66, 1.39, 0.021, 28e6, 0.3 * (1.39 * std::sqrt(28.0) + 0.021 * 28)},
    {"7.5 m of 75 ohm at 144 MHz", 7.5, 75, 0.82, 0.6, 0.004, 144e6, 0.075 * (0.6 * 12 + 0.004 * 144)},
    {"100 m of 450 ohm at 3.6 MHz", 100, 450, 0.91, 0.05, 0.0008, 3.6e6, 0.05 * std::sqrt(3.6) + 0.0008 * 3.6},
};

// Loaded by its own impedance the cable shows that impedance with the matched
// loss its figures give for the length; an open or shorted far end returns
// with twice that loss, the wave going out and back.
TEST(CoaxialCable, MatchedLoadIsSeenUnchangedAndAMismatchedEndReturnsTwiceTheLoss) {
  for (const Cable& c : kCables) {
    const auto through = [&c](Complex load) {
      return Through(CoaxialCable, {0, c.metres, c.z0, c.vf, c.k1, c.k2}, c.f, load);
    };
    EXPECT_LT(ReflectionMagnitude(through(c.z0), c.z0), 1e-12) << c.name;
    EXPECT_NEAR(CableMatchedLossDb({c.metres, c.z0, c.vf, c.k1, c.k2}, c.f), c.lossDb, 1e-12 * c.lossDb) << c.name;
    for (const Complex end : {Complex(1e20), Complex(0)}) {
      const double returnLossDb = -20 * std::log10(ReflectionMagnitude(through(end), c.z0));
      EXPECT_NEAR(returnLossDb, 2 * c.lossDb, 1e-9) << c.name << " ending in " << end;
    }
  }
}

// The ratio divides the load impedance and the leakage inductance adds its
// reactance in series; a winding inductance of 0 is none. (The magnetising
// inductance across the generator side is checked with every part type.)
TEST(TransformerStage, DividesByTheRatioWithItsLeakageInductance) {
  struct Case {
    const char* name;
    Complex load;
    std::array<double, 6> slots;
    double f;
    Complex expected;
  };
  for (const Case& c : {
           Case{"end-fed 49:1", 2450, {0, 49}, 7e6, 50},
           Case{"4:1 with a reactive load", {200, -120}, {0, 4}, 14e6, {50, -30}},
           Case{"leakage", 450, {0, 9, 0, 0.2e-6}, 10e6, {50, 2 * std::numbers::pi * 10e6 * 0.2e-6}},
       }) {
    const Complex z = Through(Transformer, c.slots, c.f, c.load);
    EXPECT_LT(std::abs(z - c.expected), 1e-12 * std::abs(c.expected)) << c.name << ": " << z;
  }
}

}  // namespace
}  // namespace kalvex
