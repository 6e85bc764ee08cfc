#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <thread>
#include <vector>

#include "model/batch_calculate.h"
#include "model/calculate.h"
#include "model/reflection.h"
#include "model/worst_reflection.h"
#include "support/networks.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;

// Frequencies from 5 kHz to 10 GHz, log-spaced, an odd number of them so that
// the last vector of every block is partly filled.
std::vector<double> WideBand(int count) {
  std::vector<double> f(count);
  for (int k = 0; k < count; ++k) f[k] = 5e3 * std::pow(2e6, k / (count - 1.0));
  return f;
}

// Frequencies at which a 40-degree line at 5 MHz is a quarter and a half wave
// long, odd multiples of both, and a hair either side of each.
std::vector<double> NearPoles() {
  std::vector<double> f;
  for (const double wavelengths : {0.25, 0.5, 0.75, 1.0, 2.25, 10.5, 1000.25}) {
    const double pole = 5e6 * wavelengths * 360 / 40;
    for (const double offset : {-1e-9, -1e-13, 0.0, 1e-13, 1e-9}) f.push_back(pole * (1 + offset));
  }
  return f;
}

// CalculateNetwork at f on `load`, in `session` (a working copy).
Complex Scalar(Session& session, double f, Complex load) {
  session.LoadSource = 1;
  session.Frequency = f;
  session.Value[0][1] = load.real();
  session.Value[0][2] = load.imag();
  CalculateNetwork(session, 0);
  return {session.InputR, session.InputX};
}

std::vector<Complex> Batched(const Session& session, const std::vector<double>& f,
                             const std::vector<Complex>& loads, VectorPath path) {
  std::vector<double> r, x;
  for (const Complex load : loads) {
    r.push_back(load.real());
    x.push_back(load.imag());
  }
  NetworkBatch(session).Calculate(f, r, x, path);
  std::vector<Complex> z;
  for (std::size_t k = 0; k < f.size(); ++k) z.push_back({r[k], x[k]});
  return z;
}

// A different load at each point, so that a point mixed up with its
// neighbour shows.
std::vector<Complex> Loads(std::size_t count) {
  std::vector<Complex> loads;
  for (std::size_t k = 0; k < count; ++k) loads.push_back({20.0 + k % 7 * 9, -30.0 + k % 5 * 17});
  return loads;
}

// Every point of the batch against CalculateNetwork on every build of the
// loops, to 1e-12 of the impedance's magnitude.
void ExpectBatchMatchesScalar(const Session& session, const std::vector<double>& f) {
  const std::vector<Complex> loads = Loads(f.size());
  Session scalar = session;
  for (const VectorPath path : VectorPaths()) {
    const std::vector<Complex> z = Batched(session, f, loads, path);
    for (std::size_t k = 0; k < f.size(); ++k) {
      const Complex expected = Scalar(scalar, f[k], loads[k]);
      EXPECT_LE(std::abs(z[k] - expected), 1e-12 * std::abs(expected))
          << "point " << k << " at " << f[k] << " Hz on path " << static_cast<int>(path) << ": "
          << z[k] << " against " << expected;
    }
  }
}

Session WithStages(const std::vector<testing::StagePart>& parts) {
  return testing::WithStages(testing::SessionOnLoad(50, 0, 1e6), parts);
}

// Every type, and values that take the calculation's special cases, alone
// and between a lossy series inductor and a shunt capacitor.
TEST(NetworkBatchTest, EveryTypeAndEdgeValueMatchesTheCalculationOverTheRangeAndNearLinePoles) {
  std::vector<testing::Part> parts = testing::ThirteenParts();
  parts.insert(parts.end(), testing::FeedParts().begin(), testing::FeedParts().end());
  parts.insert(parts.end(), {
      {"capacitor of 0", SeriesCapacitor, {0, 0, 500}},
      {"shunt capacitor of 0", ShuntCapacitor, {0, 0, 0}},
      {"ideal inductor", SeriesInductor, {0, 1e-6, 0}},
      {"shunt inductor of 0 (a short)", ShuntInductor, {0, 0, 100}},
      {"line of 0 ohms", SeriesLine, {0, 40, 5e6, 0}},
      {"line without reference frequency", SeriesLine, {0, 40, 0, 75}},
      {"stub without reference frequency", ShuntShortedStub, {0, 90, 0, 50}},
      {"line of a million turns", SeriesLine, {0, 360e6, 5e3, 75}},
      {"LC whose branches cancel", SeriesParallelLC, {0, 1e-6, 0, 1 / (std::pow(2 * std::numbers::pi * 5e6, 2) * 1e-6), 0}},
      {"shunt resistor of 0", ShuntResistor, {0, 0}}});
  std::vector<double> f = WideBand(301);
  const std::vector<double> poles = NearPoles();
  f.insert(f.end(), poles.begin(), poles.end());
  f.push_back(5e6);
  for (const testing::Part& part : parts) {
    SCOPED_TRACE(part.name);
    ExpectBatchMatchesScalar(WithStages({{part.type, part.values}}), f);
    ExpectBatchMatchesScalar(
        WithStages({{SeriesInductor, {0, 1e-6, 80}}, {part.type, part.values}, {ShuntCapacitor, {0, 50e-12, 300}}}), f);
  }
}

TEST(NetworkBatchTest, BatchesOfAnyLengthMatchPointForPoint) {
  const Session session = testing::FiveStageNetwork();
  for (const int count : {1, 2, 3, 7, 255, 256, 257, 513, 2001}) {
    SCOPED_TRACE(count);
    ExpectBatchMatchesScalar(session, count == 1 ? std::vector<double>{14.2e6} : WideBand(count));
  }
}

// Every build of the loops, and the batch in a worker thread, give the
// baseline's result on the main thread to the bit.
TEST(NetworkBatchTest, EveryBuildAndAWorkerThreadGiveTheSameBits) {
  const Session session = testing::FiveStageNetwork();
  const std::vector<double> f = WideBand(999);
  const std::vector<Complex> loads = Loads(f.size());
  const std::vector<Complex> baseline = Batched(session, f, loads, VectorPath::Baseline);
  for (const VectorPath path : VectorPaths()) {
    std::vector<Complex> inThread;
    std::thread worker([&] { inThread = Batched(session, f, loads, path); });
    worker.join();
    EXPECT_EQ(Batched(session, f, loads, path), baseline) << static_cast<int>(path);
    EXPECT_EQ(inThread, baseline) << static_cast<int>(path);

    std::vector<double> r, x;
    for (const Complex z : baseline) {
      r.push_back(z.real());
      x.push_back(z.imag());
    }
    std::vector<double> rho(r.size());
    PlottedRho(r, x, 50, rho, path);
    for (std::size_t k = 0; k < rho.size(); ++k) ASSERT_EQ(rho[k], PlotImpedance(r[k], x[k], 50).rho) << k;
  }
}

TEST(NetworkBatchTest, WorstReflectionIsTheLargestOfThePointsCalculatedOneByOne) {
  Session session = testing::FiveStageNetwork();
  session.SystemZ = 75;
  const std::vector<double> f = WideBand(101);
  const Complex load(session.Value[0][1], session.Value[0][2]);
  Session scalar = session;
  double worst = 0;
  for (const double frequency : f) {
    const Complex z = Scalar(scalar, frequency, load);
    worst = std::max(worst, PlotImpedance(z.real(), z.imag(), 75).rho);
  }
  EXPECT_NEAR(WorstPlottedRho(session, {}, f), worst, 1e-12 * worst);

  // Load-data points bring their own frequency and load.
  session.LoadSource = 2;
  std::tie(session.LoadFreq[3], session.LoadR[3], session.LoadX[3]) = std::tuple(14e6, 12, 40);
  const Complex z = Scalar(scalar, 14e6, {12, 40});
  const std::vector<int> points = {3};
  EXPECT_NEAR(WorstPlottedRho(session, points, {}), PlotImpedance(z.real(), z.imag(), 75).rho, 1e-15);
}

}  // namespace
}  // namespace kalvex
