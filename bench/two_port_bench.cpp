#include <benchmark/benchmark.h>

#include <vector>

#include "analysis/sweep.h"
#include "files/network_two_port_text.h"
#include "files/two_port_file.h"
#include "model/batch_calculate.h"
#include "support/five_stage_network.h"

namespace {

constexpr int kPoints = 2000;

// The five-stage network's own two-port file over `points` frequencies
// from 10 to 20 MHz, as a block in stage 1 of an otherwise empty network.
kalvex::Session FiveStageAsBlock(int points) {
  kalvex::Session network = kalvex::testing::FiveStageNetwork();
  network.SweepStart = 10e6;
  network.SweepStop = 20e6;
  network.SweepPoints = static_cast<int16_t>(points);
  kalvex::RunSweepPoints(network, kalvex::SweepUse::Table);
  const kalvex::TwoPortReading reading =
      kalvex::ReadTwoPortText("five.s2p", kalvex::NetworkTwoPortText(network, "now"));
  kalvex::Session session = network;
  session.ElementType = {};
  session.ElementType[1] = kalvex::TwoPort;
  session.Value[1] = {0, 1};
  session.TwoPortBlocks[1] = {"five.s2p", reading.table};
  return session;
}

// 2,000 points through the block read from a 201-point file, against
// BM_Batched2000's five stages: the price of interpolating the file.
void BM_BlockBatched2000(benchmark::State& state) {
  const kalvex::NetworkBatch network(FiveStageAsBlock(201));
  std::vector<double> f(kPoints), r(kPoints), x(kPoints);
  for (int k = 0; k < kPoints; ++k) f[k] = 10e6 + k * (20e6 - 10e6) / (kPoints - 1);
  for (auto _ : state) {
    std::fill(r.begin(), r.end(), 36);
    std::fill(x.begin(), x.end(), -20);
    network.Calculate(f, r, x);
    benchmark::DoNotOptimize(x.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_BlockBatched2000)->Unit(benchmark::kMicrosecond);

// Reading a 2,000-frequency two-port file (about 340 kB), as opening a
// network with such a block does.
void BM_ReadTwoPort2000(benchmark::State& state) {
  kalvex::Session network = kalvex::testing::FiveStageNetwork();
  network.SweepStart = 10e6;
  network.SweepStop = 20e6;
  network.SweepPoints = kPoints;
  kalvex::RunSweepPoints(network, kalvex::SweepUse::Table);
  const std::string text = kalvex::NetworkTwoPortText(network, "now");
  for (auto _ : state) benchmark::DoNotOptimize(kalvex::ReadTwoPortText("five.s2p", text).table);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ReadTwoPort2000)->Unit(benchmark::kMicrosecond);

}  // namespace
