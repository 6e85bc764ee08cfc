#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "matching/optimise.h"
#include "model/calculate.h"
#include "model/reflection.h"
#include "model/worst_reflection.h"
#include "support/five_stage_network.h"
#include "support/hard_matches.h"

namespace {

// Five free parts over a 2,000-point band: the time to converge, with the
// evaluations and the worst VSWR before and after as counters.
void BM_OptimiseFivePartsOver2000Points(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetworkSwept(2000);
  kalvex::OptimiseResult result;
  for (auto _ : state) {
    result = kalvex::Optimise(session, {{1, 2, 3, 4, 5}, false, true});
    benchmark::DoNotOptimize(result.after);
  }
  state.counters["evaluations"] = result.evaluations;
  state.counters["vswr_before"] = result.before;
  state.counters["vswr_after"] = result.after;
}
BENCHMARK(BM_OptimiseFivePartsOver2000Points)->Unit(benchmark::kMillisecond)->Iterations(3);

double ReturnLoss(double vswr) { return -20 * std::log10((vswr - 1) / (vswr + 1)); }

// Each hard case over 2,000 points with the default effort: time and the
// worst return loss reached (compare with BM_HardMatchReference).
void BM_HardMatch(benchmark::State& state) {
  const kalvex::testing::HardMatch hard = kalvex::testing::HardMatches(2000)[state.range(0)];
  kalvex::OptimiseResult result;
  for (auto _ : state) {
    result = kalvex::Optimise(hard.session, {hard.free, hard.freeImpedances, true});
    benchmark::DoNotOptimize(result.after);
  }
  state.SetLabel(hard.name);
  state.counters["return_loss_db"] = ReturnLoss(result.after);
  state.counters["vswr_after"] = result.after;
}
BENCHMARK(BM_HardMatch)->DenseRange(0, 5)->Unit(benchmark::kMillisecond)->Iterations(1);

// The long reference run on 201 points: ten times the samples, four times
// the scouts, ten times the minima, every one polished.
void BM_HardMatchReference(benchmark::State& state) {
  const kalvex::testing::HardMatch hard = kalvex::testing::HardMatches(201)[state.range(0)];
  kalvex::OptimiseResult reference;
  kalvex::OptimiseResult fast;
  for (auto _ : state) {
    reference = kalvex::Optimise(hard.session, {hard.free, hard.freeImpedances, true}, nullptr, {20000, 2000, 240, 240});
    fast = kalvex::Optimise(hard.session, {hard.free, hard.freeImpedances, true});
  }
  state.SetLabel(hard.name);
  state.counters["reference_db"] = ReturnLoss(reference.after);
  state.counters["default_db"] = ReturnLoss(fast.after);
  std::printf("%s: reference VSWR %.9g (%.4f dB), default %.9g (%.4f dB)\n", hard.name.c_str(), reference.after,
              ReturnLoss(reference.after), fast.after, ReturnLoss(fast.after));
}
BENCHMARK(BM_HardMatchReference)->DenseRange(0, 5)->Unit(benchmark::kMillisecond)->Iterations(1);


}  // namespace

namespace {

// The optimiser's objective over 2,000 points: the worst |Γ| in one batch,
// against 2,000 calls of the one-point calculation as it was computed before.
kalvex::Session ObjectiveSession() {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  session.LoadSource = 1;
  return session;
}

std::vector<double> ObjectiveBand() {
  std::vector<double> f(2000);
  for (int k = 0; k < 2000; ++k) f[k] = 13.5e6 + k * (15e6 - 13.5e6) / 1999;
  return f;
}

void BM_Objective2000Batched(benchmark::State& state) {
  const kalvex::Session session = ObjectiveSession();
  const std::vector<double> f = ObjectiveBand();
  for (auto _ : state) benchmark::DoNotOptimize(kalvex::WorstPlottedRho(session, {}, f));
}
BENCHMARK(BM_Objective2000Batched)->Unit(benchmark::kMicrosecond);

void BM_Objective2000ScalarCalls(benchmark::State& state) {
  kalvex::Session session = ObjectiveSession();
  const std::vector<double> f = ObjectiveBand();
  for (auto _ : state) {
    double worst = 0;
    for (const double frequency : f) {
      session.Frequency = frequency;
      kalvex::CalculateNetwork(session, 0);
      worst = std::max(worst, kalvex::PlotImpedance(session.InputR, session.InputX, session.SystemZ).rho);
    }
    benchmark::DoNotOptimize(worst);
  }
}
BENCHMARK(BM_Objective2000ScalarCalls)->Unit(benchmark::kMicrosecond);

}  // namespace
