#include "calculate_bench.h"

#include "model/calculate.h"
#include "support/five_stage_network.h"

// The chart recalculates the whole network 5,000 times a redraw.
void BM_CalculateNetwork(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  for (auto _ : state) {
    kalvex::CalculateNetwork(session, 0);
    benchmark::DoNotOptimize(session.InputR);
    benchmark::DoNotOptimize(session.InputX);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_CalculateNetwork);
