#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "model/calculate.h"
#include "support/networks.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;

using Stages = std::vector<testing::StagePart>;

class CalculateNetworkTest : public ::testing::Test {
 protected:
  Complex Calculate(Complex load, double frequency, const Stages& stages) {
    session = testing::WithStages(testing::SessionOnLoad(load.real(), load.imag(), frequency), stages);
    session.VelocityFactor = 0.66;  // a line or stub puts it back to 1
    CalculateNetwork(session, 0);
    return {session.InputR, session.InputX};
  }

  Session session;
};

TEST_F(CalculateNetworkTest, EmptyStagesArePassedOverAndNoFrequencyChangesNothing) {
  EXPECT_EQ(Calculate({33, -12}, 7e6, {}), Complex(33, -12));
  const Complex withGap = Calculate({50, 0}, 14e6, {{SeriesCapacitor, {0, 100e-12, 1000}},
                                                    {Empty, {}}, {ShuntInductor, {0, 1e-6, 200}}});
  EXPECT_EQ(withGap, Calculate({50, 0}, 14e6, {{SeriesCapacitor, {0, 100e-12, 1000}}, {ShuntInductor, {0, 1e-6, 200}}}));
  session.InputR = 12;
  EXPECT_EQ(testing::InputAt(session, 0).real(), 12);
}

constexpr double kF = 10e6;
constexpr double kOmega = 2 * std::numbers::pi * kF;

Complex Parallel(Complex a, Complex b) { return a * b / (a + b); }
Complex Capacitor(double c, double q) {
  const double x = -1 / (kOmega * c);
  return {std::fabs(x / q), x};
}
Complex Inductor(double l, double q) {
  const double x = kOmega * l;
  return {x / q, x};
}
double Tan(double degrees) { return std::tan(degrees * std::numbers::pi / 180); }
Complex Line(Complex load, double z0, double degrees) {
  const Complex j(0, 1);
  return z0 * (load + j * z0 * Tan(degrees)) / (z0 + j * load * Tan(degrees));
}

// Every element type by its textbook circuit formula, worked out here with
// complex numbers independently of the calculation; lengths are given at
// their reference frequency and scale to kF.
Complex Expected(const testing::Part& part, Complex z) {
  const auto& v = part.values;
  const double degrees = v[1] * kF / v[2];
  switch (part.type) {
    case SeriesCapacitor: return z + Capacitor(v[1], v[2]);
    case ShuntCapacitor: return Parallel(z, Capacitor(v[1], v[2]));
    case SeriesInductor: return z + Inductor(v[1], v[2]);
    case ShuntInductor: return Parallel(z, Inductor(v[1], v[2]));
    case SeriesLine: return Line(z, v[3], degrees);
    case SeriesShortedStub: return z + Complex(0, v[3] * Tan(degrees));
    case SeriesOpenStub: return z + Complex(0, -v[3] / Tan(degrees));
    case ShuntShortedStub: return Parallel(z, Complex(0, v[3] * Tan(degrees)));
    case ShuntOpenStub: return Parallel(z, Complex(0, -v[3] / Tan(degrees)));
    case ShuntSeriesLC: return Parallel(z, Inductor(v[1], v[2]) + Capacitor(v[3], v[4]));
    case SeriesParallelLC: return z + Parallel(Inductor(v[1], v[2]), Capacitor(v[3], v[4]));
    case SeriesResistor: return z + v[1];
    case ShuntResistor: return Parallel(z, v[1]);
    case CoaxialCable: {
      const double nepersPerMetre = (v[4] * std::sqrt(kF / 1e6) + v[5] * kF / 1e6) / 100 * std::log(10) / 20;
      const Complex gammaL = Complex(nepersPerMetre, kOmega / (299792458 * v[3])) * v[1];
      return v[2] * (z * std::cosh(gammaL) + v[2] * std::sinh(gammaL)) /
             (v[2] * std::cosh(gammaL) + z * std::sinh(gammaL));
    }
    default: return Parallel(z / v[1], Complex(0, kOmega * v[2])) + Complex(0, kOmega * v[3]);
  }
}

class ElementTypes : public CalculateNetworkTest, public ::testing::WithParamInterface<testing::Part> {};

// Each part in stage 1, 4 and 5, behind series resistors of 5 ohms in the
// stages before it; lines and stubs also put the velocity factor back to 1.
TEST_P(ElementTypes, MatchCircuitFormulasInEveryStage) {
  const testing::Part& part = GetParam();
  for (int position : {1, 4, kLastStage}) {
    Stages stages(position - 1, {SeriesResistor, {0, 5}});
    stages.push_back({part.type, part.values});
    const Complex load(30, -20);
    const Complex actual = Calculate(load, kF, stages);
    const Complex expected = Expected(part, load + 5.0 * (position - 1));
    const std::string where = std::string(part.name) + " in stage " + std::to_string(position);
    EXPECT_LE(std::abs(actual - expected), 1e-9 * std::abs(expected)) << where << ": " << actual << " against " << expected;
    const bool lineOrStub = part.type >= SeriesLine && part.type <= ShuntOpenStub;
    EXPECT_EQ(session.VelocityFactor, lineOrStub ? 1.0 : 0.66) << where;
  }
}

INSTANTIATE_TEST_SUITE_P(AllThirteen, ElementTypes, ::testing::ValuesIn(testing::ThirteenParts()), testing::PartName);
INSTANTIATE_TEST_SUITE_P(CableAndTransformer, ElementTypes, ::testing::ValuesIn(testing::FeedParts()),
                         testing::PartName);

// Inputs the Design page normally keeps out still give a finite impedance,
// with the physical meaning of the degenerate part where it has one.
TEST_F(CalculateNetworkTest, DegenerateInputsGiveFiniteResults) {
  struct Case {
    const char* name;
    Complex load;
    testing::StagePart stage;
    Complex expected;
    double tolerance;
  };
  for (const Case& c : {
           // A Q of 0 is an ideal part.
           Case{"capacitor Q 0", {50, 0}, {SeriesCapacitor, {0, 100e-12, 0}}, {50, -1 / (kOmega * 100e-12)}, 1e-9},
           // A capacitance of 0 is an open: nothing across the line, a break in it.
           Case{"shunt C of 0", {50, 10}, {ShuntCapacitor, {0, 0, 1000}}, {50, 10}, 1e-9},
           Case{"series C of 0", {50, 10}, {SeriesCapacitor, {0, 0, 1000}}, {1e17, -1e20}, 1e6},
           // A shunt short shorts the line, and so does a short reaching a shunt part.
           Case{"shunt L of 0", {50, 10}, {ShuntInductor, {0, 0, 200}}, {0, 0}, 0},
           Case{"shunt shorted stub of 180 degrees", {50, 10}, {ShuntShortedStub, {0, 180, kF, 50}}, {0, 0}, 1e-9},
           Case{"short reaching a shunt capacitor", {0, 0}, {ShuntCapacitor, {0, 100e-12, 1000}}, {0, 0}, 0},
           // A reference frequency of 0 takes the length as entered.
           Case{"line without reference frequency", {25, 25}, {SeriesLine, {0, 45, 0, 50}}, {100, 50}, 1e-9},
           // Admittances that cancel leave an open circuit.
           Case{"cancelling admittances", {kOmega * 1e-6 / 2, -kOmega * 1e-6}, {ShuntInductor, {0, 1e-6, -2}},
                {1e20, 0}, 1},
           Case{"shunt resistor of 0", {50, 0}, {ShuntResistor, {0, 0}}, {0, 0}, 1e-19},
           // A winding inductance of 0 is none: the ratio alone divides the load, the leakage adds in series.
           Case{"transformer without windings", {2450, 0}, {Transformer, {0, 49}}, {50, 0}, 1e-9},
           Case{"transformer with leakage alone", {200, -120}, {Transformer, {0, 4, 0, 0.2e-6}},
                {50, -30 + kOmega * 0.2e-6}, 1e-9}}) {
    const Complex z = Calculate(c.load, kF, {c.stage});
    ASSERT_TRUE(std::isfinite(z.real()) && std::isfinite(z.imag())) << c.name;
    EXPECT_LE(std::abs(z - c.expected), c.tolerance) << c.name << ": " << z;
  }
}

}  // namespace
}  // namespace kalvex
