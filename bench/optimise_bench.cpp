#include <benchmark/benchmark.h>

#include "matching/optimise.h"
#include "support/five_stage_network.h"

namespace {

// Five free parts over a 2,000-point band: the time to converge, with the
// evaluations and the worst VSWR before and after as counters.
void BM_OptimiseFivePartsOver2000Points(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  session.SweepStart = 13.5e6;
  session.SweepStop = 15e6;
  session.SweepPoints = 2000;
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

}  // namespace
