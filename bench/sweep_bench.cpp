#include <benchmark/benchmark.h>

#include "analysis/sweep.h"
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

}  // namespace
