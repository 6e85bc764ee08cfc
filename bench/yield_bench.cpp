#include <benchmark/benchmark.h>

#include "matching/yield.h"
#include "support/five_stage_network.h"

namespace {

// The yield of five parts, 10,000 networks over a 201-point band, on every
// core; the yield and the worst corner as counters.
void BM_YieldFivePartsTenThousandSamplesOver201Points(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  session.SweepStart = 13.5e6;
  session.SweepStop = 15e6;
  session.SweepPoints = 201;
  kalvex::YieldResult result;
  for (auto _ : state) {
    result = kalvex::ComputeYield(session, {});
    benchmark::DoNotOptimize(result.yield);
  }
  state.counters["corners_worst_vswr"] = result.cornersWorst;
}
BENCHMARK(BM_YieldFivePartsTenThousandSamplesOver201Points)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
