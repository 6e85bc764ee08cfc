#include <benchmark/benchmark.h>

#include <QPushButton>

#include "device/analyser_link.h"
#include "device/measured_sweep.h"
#include "simulated_analyser.h"
#include "support/fake_dialogs.h"
#include "support/five_stage_network.h"
#include "ui/analysis_page.h"

namespace {

const kalvex::SimulatedLoad kAntenna = kalvex::SimulatedLoad::Antenna(60, 14.15e6, 12);

// A sweep of 101 points around the five-stage network's frequency, the
// antenna a little detuned by `shift` so that each sweep differs.
kalvex::MeasuredSweep AntennaSweep(double shift) {
  kalvex::MeasuredSweep sweep;
  for (int k = 0; k < 101; ++k) {
    const double f = 13e6 + 2.5e6 * k / 100;
    sweep.points.push_back({f, kalvex::S11Of(kAntenna.ImpedanceAt(f * (1 + shift)))});
  }
  return sweep;
}

// From a finished sweep of 101 points to the Analysis page on screen: the
// sweep made the load data, the page redrawn with the sweep, Q arcs and VSWR
// circle on, and the whole 1920 x 1080 window painted.
void BM_LiveSweepToRedrawnPage(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  session.CoilArcRadius = 80;
  session.QArcsOn = 1;
  session.VSWRCircleOn = 1;
  session.SweepShown = 1;
  kalvex::testing::FakeDialogs dialogs;
  kalvex::AnalysisPage page(session, dialogs);
  page.resize(1920, 1080);
  page.show();
  const kalvex::MeasuredSweep sweeps[] = {AntennaSweep(0), AntennaSweep(0.001)};
  int k = 0;
  for (auto _ : state) {
    kalvex::TakeMeasuredLoad(session, sweeps[k++ % 2]);
    page.Redraw();
    benchmark::DoNotOptimize(page.grab());
  }
}
BENCHMARK(BM_LiveSweepToRedrawnPage)->Unit(benchmark::kMillisecond);

// The host's share of the protocol: a sweep of 101 points answered by the
// simulated analyser in one go and read by the conversation.
void BM_AnalyserSweep101(benchmark::State& state) {
  kalvex::SimulatedAnalyser analyser(kAntenna, {}, true, 101);
  kalvex::AnalyserLink link({13e6, 15.5e6, 101}, 0, 0);
  for (int k = 0; k < 3; ++k) link.Receive(analyser.Feed(link.TakeOutgoing()), 0);  // wake, version, info
  for (auto _ : state) {
    const std::string answer = analyser.Feed(link.TakeOutgoing());
    link.Receive(answer, 0);
    benchmark::DoNotOptimize(link.TakeSweep());
  }
}
BENCHMARK(BM_AnalyserSweep101)->Unit(benchmark::kMicrosecond);

}  // namespace
