#include <benchmark/benchmark.h>

#include "model/calculate.h"

namespace {

// The five-stage network the chart recalculates 5,000 times a redraw:
// series inductor, shunt capacitor, line section, shunt open stub, series capacitor.
kalvex::Session FiveStageNetwork() {
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = 14.2e6;
  session.Value[0][1] = 36;
  session.Value[0][2] = -20;
  session.ElementType = {0, kalvex::SeriesInductor, kalvex::ShuntCapacitor, kalvex::SeriesLine,
                         kalvex::ShuntOpenStub, kalvex::SeriesCapacitor};
  session.Value[1] = {0, 1.2e-6, 200};
  session.Value[2] = {0, 150e-12, 1000};
  session.Value[3] = {0, 30, 14.2e6, 75};
  session.Value[4] = {0, 45, 14.2e6, 50};
  session.Value[5] = {0, 220e-12, 1000};
  return session;
}

void BM_CalculateNetwork(benchmark::State& state) {
  kalvex::Session session = FiveStageNetwork();
  for (auto _ : state) {
    kalvex::CalculateNetwork(session, 0);
    benchmark::DoNotOptimize(session.InputR);
    benchmark::DoNotOptimize(session.InputX);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_CalculateNetwork);

}  // namespace
