#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <filesystem>
#include <string>
#include <thread>

#include "calculate_bench.h"

#include "analysis/redraw.h"
#include "analysis/sweep_on_chart.h"
#include "print/paper.h"
#include "print/print_chart.h"
#include "ui/page_renderer.h"
#include "chart/analysis_view.h"
#include "chart/network_path.h"
#include "matching/optimise.h"
#include "model/calculate.h"
#include "model/vector_state.h"
#include "platform/display_list.h"
#include "support/fake_dialogs.h"
#include "support/five_stage_network.h"
#include "ui/analysis_page.h"
#include "ui/optimise_dialog.h"
#include "ui/painter_canvas.h"

namespace {

kalvex::Session ChartSession() {
  kalvex::Session session = kalvex::testing::FiveStageNetwork();
  session.GridType = 3;
  session.ChartAspect = 0.75f;
  session.ChartCentreX = 8000;
  kalvex::LoadAnalysisView(session);
  return session;
}

// The calculation part of a redraw: the 5,000 points of the path.
void BM_NetworkPath(benchmark::State& state) {
  kalvex::Session session = ChartSession();
  for (auto _ : state) {
    kalvex::DisplayList list;
    kalvex::DrawNetworkArcs(session, list);
    benchmark::DoNotOptimize(list.Commands().data());
  }
}
BENCHMARK(BM_NetworkPath)->Unit(benchmark::kMillisecond);

// The path's 5,000 points alone, without drawing them, against 5,000 plain
// calculations of the whole network in the same run.
void BM_TraceNetworkPath(benchmark::State& state) {
  kalvex::Session session = ChartSession();
  for (auto _ : state) benchmark::DoNotOptimize(kalvex::TraceNetworkPath(session).data());
}
BENCHMARK(BM_TraceNetworkPath)->Unit(benchmark::kMillisecond);

void Calculation5000(kalvex::Session& session) {
  for (int k = 0; k < 5000; ++k) {
    kalvex::CalculateNetwork(session, 0);
    benchmark::DoNotOptimize(session.InputR);
  }
}

void BM_Calculation5000(benchmark::State& state) {
  kalvex::Session session = ChartSession();
  for (auto _ : state) Calculation5000(session);
}
BENCHMARK(BM_Calculation5000)->Unit(benchmark::kMillisecond);

// The same in a thread started after Qt, as the window's workers are: its
// wall time (the main thread only waits).
void BM_Calculation5000InWorkerThread(benchmark::State& state) {
  kalvex::Session session = ChartSession();
  std::thread worker([&] {
    for (auto _ : state) Calculation5000(session);
  });
  worker.join();
}
BENCHMARK(BM_Calculation5000InWorkerThread)->Unit(benchmark::kMillisecond)->UseRealTime();

// The search as kalvex-cli optimize runs it, on the network and band of
// kalvex_bench's optimiser benchmark: on the main thread, no Qt.
void BM_OptimiseAsTheCommandLine(benchmark::State& state) {
  const kalvex::Session session = kalvex::testing::FiveStageNetworkSwept(2000);
  for (auto _ : state) {
    benchmark::DoNotOptimize(kalvex::Optimise(session, {{1, 2, 3, 4, 5}, false, true}).after);
  }
}

// The same search started from the Optimise dialog (every stage free, over
// the band): in the dialog's worker thread, while Qt runs.
void BM_OptimiseDialogSearch(benchmark::State& state) {
  kalvex::Session session = kalvex::testing::FiveStageNetworkSwept(2000);
  kalvex::OptimiseDialog dialog(session);
  for (auto _ : state) {
    dialog.cmdStart->click();
    dialog.WaitForSearch();
  }
}
BENCHMARK(BM_OptimiseDialogSearch)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);

// The Qt-free figures the window's are compared with, measured in this same
// process before Qt's GUI starts (named BeforeQt/ to run in that phase).
template <void (*Benchmark)(benchmark::State&)>
void BeforeQt(benchmark::State& state) {
  if (QCoreApplication::instance() != nullptr) {
    state.SkipWithError("measured before Qt starts only");
    return;
  }
  Benchmark(state);
}
BENCHMARK(BeforeQt<BM_CalculateNetwork>)->Name("BeforeQt/BM_CalculateNetwork");
BENCHMARK(BeforeQt<BM_Calculation5000>)->Name("BeforeQt/BM_Calculation5000")->Unit(benchmark::kMillisecond);
BENCHMARK(BeforeQt<BM_TraceNetworkPath>)->Name("BeforeQt/BM_TraceNetworkPath")->Unit(benchmark::kMillisecond);
BENCHMARK(BeforeQt<BM_OptimiseAsTheCommandLine>)
    ->Name("BeforeQt/BM_OptimiseAsTheCommandLine")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);

// The chart with everything on: Q arcs, VSWR circle and a 2,000-point sweep.
kalvex::Session EverythingOnSession() {
  kalvex::Session session = ChartSession();
  session.QArcsOn = 1;
  session.VSWRCircleOn = 1;
  session.SweepShown = 1;
  session.LoadSource = 1;
  session.SweepStart = 13e6;
  session.SweepStop = 15.5e6;
  session.SweepPoints = 2000;
  return session;
}

// The sweep's part of such a redraw: 2,000 points calculated and marked.
void BM_SweepOnChart(benchmark::State& state) {
  kalvex::Session session = EverythingOnSession();
  for (auto _ : state) {
    kalvex::DisplayList list;
    kalvex::RunSweep(session, list);
    benchmark::DoNotOptimize(list.Commands().data());
  }
}
BENCHMARK(BM_SweepOnChart)->Unit(benchmark::kMillisecond);

// RedrawChart into the display list, then painted into a 1920 x 1080 image, as
// a full-screen window repaints it: with the path alone (0), and with both
// overlays and the sweep (1).
void BM_RedrawChartFullHd(benchmark::State& state) {
  kalvex::Session session = state.range(0) == 0 ? ChartSession() : EverythingOnSession();
  QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
  const QSizeF page(kalvex::kAnalysisPageWidth, kalvex::kAnalysisPageHeight);
  const double sx = image.width() / page.width();
  const double sy = image.height() / page.height();
  kalvex::DisplayList list;
  for (auto _ : state) {
    kalvex::RedrawChart(session, list);
    QPainter painter(&image);
    painter.scale(sx, sy);
    kalvex::PainterCanvas canvas(painter, page, std::sqrt(sx * sy));
    list.Replay(canvas);
  }
}
BENCHMARK(BM_RedrawChartFullHd)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The display list of a redraw with everything on, without painting it.
void BM_RedrawIntoDisplayList(benchmark::State& state) {
  kalvex::Session session = EverythingOnSession();
  kalvex::DisplayList list;
  for (auto _ : state) {
    kalvex::RefreshAnalysis(session, list);
    benchmark::DoNotOptimize(list.Commands().data());
  }
}
BENCHMARK(BM_RedrawIntoDisplayList)->Unit(benchmark::kMillisecond);

// The Analysis page at 1920 x 1080 with everything on, redrawn and painted as
// the window repaints it after a change that leaves the view (its background
// shown from the cache), and after one that changes it (background repainted).
void BM_PageRedrawEverythingOn(benchmark::State& state) {
  kalvex::Session session = EverythingOnSession();
  session.CoilArcRadius = 80;
  kalvex::testing::FakeDialogs dialogs;
  kalvex::AnalysisPage page(session, dialogs);
  page.resize(1920, 1080);
  page.CacheBackground(state.range(0) == 0);
  QImage image(page.size(), QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    page.Redraw();
    page.render(&image, {}, {}, QWidget::DrawWindowBackground);
  }
}
BENCHMARK(BM_PageRedrawEverythingOn)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The printed chart page with everything on, drawn and written as a PDF.
void BM_ChartPageToPdf(benchmark::State& state) {
  kalvex::Session session = EverythingOnSession();
  session.ArcsMode = 2;
  const std::string path = std::filesystem::temp_directory_path() / "kalvex_bench_chart.pdf";
  for (auto _ : state) {
    kalvex::DisplayList page;
    kalvex::DrawChartPage(session, page, "2026-11-23 12:00:00");
    benchmark::DoNotOptimize(kalvex::RenderToFile(page, kalvex::kChartPaper, 576, 761, path, 2.4));
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_ChartPageToPdf)->Unit(benchmark::kMillisecond);

// A tuning step as the user makes it: ">" on the selected part, then the
// whole window painted at full-HD size.
void BM_TuningStepRepaint(benchmark::State& state) {
  kalvex::Session session = ChartSession();
  session.CoilArcRadius = 80;
  session.TuneStepPercent = 1;
  kalvex::testing::FakeDialogs dialogs;
  kalvex::AnalysisPage page(session, dialogs);
  page.resize(1920, 1080);
  page.show();
  page.tuning->SelectCell(2);
  QPushButton* up = page.tuning->topSteps[2];
  for (auto _ : state) {
    up->click();
    benchmark::DoNotOptimize(page.grab());  // paints the whole window, as a repaint does
  }
}
BENCHMARK(BM_TuningStepRepaint)->Unit(benchmark::kMillisecond);

}  // namespace

// The BeforeQt/ benchmarks run first, before QApplication is constructed;
// then the BM_ ones. A --benchmark_filter of one's own runs after Qt starts;
// where it names BeforeQt, every BeforeQt/ one runs first (they refuse to run
// after).
int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const std::string filter = benchmark::GetBenchmarkFilter();
  const bool ownFilter = !filter.empty() && filter != "." && filter != "all";
  // One reporter for both phases: the library's own default one does not
  // survive a second run.
  benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
  if (!ownFilter || filter.find("BeforeQt") != std::string::npos) {
    benchmark::RunSpecifiedBenchmarks(&reporter, std::string("^BeforeQt/"));
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  kalvex::ClearUpperVectorState();  // as the desktop program does after this
  benchmark::RunSpecifiedBenchmarks(&reporter, ownFilter ? filter : std::string("^BM_"));
  benchmark::Shutdown();
  return 0;
}
