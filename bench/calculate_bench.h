#pragma once

#include <benchmark/benchmark.h>

// The one-point calculation of the five-stage network, measured by kalvex_bench
// and, before and after Qt's GUI starts, by kalvex_redraw_bench.
void BM_CalculateNetwork(benchmark::State& state);
