#include <benchmark/benchmark.h>

#include "matching/match.h"
#include "matching/snap.h"
#include "matching/yield.h"
#include "support/five_stage_network.h"

namespace {

// The yield of five parts, 10,000 networks over a 201-point band, on every
// core; the yield and the worst corner as counters.
void BM_YieldFivePartsTenThousandSamplesOver201Points(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetworkSwept(201);
  kalvex::YieldResult result;
  for (auto _ : state) {
    result = kalvex::ComputeYield(session, {});
    benchmark::DoNotOptimize(result.yield);
  }
  state.counters["corners_worst_vswr"] = result.cornersWorst;
}
BENCHMARK(BM_YieldFivePartsTenThousandSamplesOver201Points)->Unit(benchmark::kMillisecond)->UseRealTime();

// A Pi of 36 - j20 ohms at 14.2 MHz with its inductor and the stub after it
// left free: three capacitors (stages 1, 3, 5) snapped to E24, the inductor
// and stub re-tuned over a 201-point band for each of the eight combinations.
void BM_SnapThreePartsTwoRetuned(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetworkSwept(201);
  kalvex::MatchRequest request;
  request.kinds = {kalvex::MatchKind::Pi};
  request.loadedQ = 3;
  for (const kalvex::MatchSolution& s : kalvex::FindMatches(session, request).solutions) {
    if (s.response == kalvex::MatchResponse::LowPass) kalvex::ApplyMatch(session, s);
  }
  session.ElementType[4] = kalvex::ShuntOpenStub;
  session.Value[4] = {0, 1, 14.2e6, 50};
  session.ElementType[5] = kalvex::SeriesCapacitor;
  session.Value[5] = {0, 1e-9, 1000};
  kalvex::SnapResult result;
  for (auto _ : state) {
    result = kalvex::SnapToStandardValues(session, {{1, 3, 5}, {}});
    benchmark::DoNotOptimize(result.after);
  }
  state.counters["vswr_rounded"] = result.rounded;
  state.counters["vswr_snapped"] = result.after;
}
BENCHMARK(BM_SnapThreePartsTwoRetuned)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace
