#include <benchmark/benchmark.h>

#include "analysis/sweep.h"
#include "model/calculate.h"
#include "support/five_stage_network.h"

namespace {

// A 2,000-point manual sweep, as every chart redraw runs it while the sweep is on.
void BM_Sweep2000(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  session.SweepStart = 10e6;
  session.SweepStop = 20e6;
  session.SweepPoints = 2000;
  for (auto _ : state) {
    benchmark::DoNotOptimize(kalvex::RunSweepPoints(session, kalvex::SweepUse::Chart));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_Sweep2000)->Unit(benchmark::kMicrosecond);

// The scalar limit the sweep is measured against: the same 2,000 frequencies
// through a plain loop of CalculateNetwork, nothing stored.
void BM_CalculationLoop2000(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  for (auto _ : state) {
    for (int k = 0; k < 2000; ++k) {
      session.Frequency = 10e6 + k * (20e6 - 10e6) / 1999;
      kalvex::CalculateNetwork(session, 0);
      benchmark::DoNotOptimize(session.InputR);
      benchmark::DoNotOptimize(session.InputX);
    }
  }
}
BENCHMARK(BM_CalculationLoop2000)->Unit(benchmark::kMicrosecond);

}  // namespace
