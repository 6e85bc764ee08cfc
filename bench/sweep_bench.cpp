#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "analysis/sweep.h"
#include "model/batch_calculate.h"
#include "model/calculate.h"
#include "model/elements.h"
#include "model/reflection.h"
#include "support/five_stage_network.h"

namespace {

constexpr int kPoints = 2000;

std::vector<double> Band(double start, double stop) {
  std::vector<double> f(kPoints);
  for (int k = 0; k < kPoints; ++k) f[k] = start + k * (stop - start) / (kPoints - 1);
  return f;
}

// A 2,000-point manual sweep, as every chart redraw runs it while the sweep is on.
void BM_Sweep2000(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  session.SweepStart = 10e6;
  session.SweepStop = 20e6;
  session.SweepPoints = kPoints;
  for (auto _ : state) {
    benchmark::DoNotOptimize(kalvex::RunSweepPoints(session, kalvex::SweepUse::Chart));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_Sweep2000)->Unit(benchmark::kMicrosecond);

// A plain loop of CalculateNetwork over the same 2,000 frequencies, nothing stored.
void BM_CalculationLoop2000(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  for (auto _ : state) {
    for (int k = 0; k < kPoints; ++k) {
      session.Frequency = 10e6 + k * (20e6 - 10e6) / (kPoints - 1);
      kalvex::CalculateNetwork(session, 0);
      benchmark::DoNotOptimize(session.InputR);
      benchmark::DoNotOptimize(session.InputX);
    }
  }
}
BENCHMARK(BM_CalculationLoop2000)->Unit(benchmark::kMicrosecond);

// The scalar limit the batch is measured against: the five-stage network
// written out as one plain loop over the frequencies, each stage's routine
// called in turn with no session in between, into input impedance and |Γ|.
void BM_ScalarTranscription2000(benchmark::State& state) {
  using namespace kalvex;
  const std::vector<double> f = Band(10e6, 20e6);
  std::vector<double> r(kPoints), x(kPoints), rho(kPoints);
  const LineSlots line{30, 14.2e6, 75};
  const LineSlots stub{45, 14.2e6, 50};
  for (auto _ : state) {
    for (int k = 0; k < kPoints; ++k) {
      Impedance z{36, -20};
      z = SeriesInductorStage(1.2e-6, 200, f[k], z);
      z = ShuntCapacitorStage(150e-12, 1000, f[k], z);
      z = SeriesLineStage(line, f[k], z);
      z = ShuntOpenStubStage(stub, f[k], z);
      z = SeriesCapacitorStage(220e-12, 1000, f[k], z);
      r[k] = z.R;
      x[k] = z.X;
      rho[k] = PlotImpedance(z.R, z.X, 50).rho;
    }
    benchmark::DoNotOptimize(rho.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_ScalarTranscription2000)->Unit(benchmark::kMicrosecond);

// The same 2,000 points as one batch, on each build of the loops this
// processor runs (0 baseline, 1 AVX2): input impedance, then |Γ|.
void BM_Batched2000(benchmark::State& state) {
  const auto path = static_cast<kalvex::VectorPath>(state.range(0));
  const std::vector<kalvex::VectorPath> paths = kalvex::VectorPaths();
  if (std::find(paths.begin(), paths.end(), path) == paths.end()) {
    state.SkipWithError("this processor does not run that build");
    return;
  }
  const kalvex::NetworkBatch network(kalvex::testing::FiveStageNetwork());
  const std::vector<double> f = Band(10e6, 20e6);
  std::vector<double> r(kPoints), x(kPoints), rho(kPoints);
  for (auto _ : state) {
    std::fill(r.begin(), r.end(), 36);
    std::fill(x.begin(), x.end(), -20);
    network.Calculate(f, r, x, path);
    kalvex::PlottedRho(r, x, 50, rho, path);
    benchmark::DoNotOptimize(rho.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_Batched2000)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
