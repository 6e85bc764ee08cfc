#include <gtest/gtest.h>

#include <cmath>

#include "chart/chart_view.h"
#include "chart/network_path.h"
#include "model/calculate.h"
#include "support/drawing_queries.h"
#include "support/test_name.h"

namespace kalvex {
namespace {

struct PathCase {
  const char* name;
  int16_t type;
  std::array<double, 5> values;  // Value(s, 1..4), slot 0 unused
};

class NetworkPaths : public ::testing::TestWithParam<PathCase> {};

double Distance(Gamma a, Gamma b) { return std::hypot(a.u - b.u, a.v - b.v); }

// The part between a series resistor and a series inductor: every stage's
// stretch starts where the one before ended (the first on the load), and the
// path ends at the network's input impedance.
TEST_P(NetworkPaths, EachStageGrowsFromWhereTheLastEnded) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = 10e6;
  session.Value[0][1] = 30;
  session.Value[0][2] = -20;
  session.ElementType[1] = SeriesResistor;
  session.Value[1][1] = 20;
  session.ElementType[2] = GetParam().type;
  for (int k = 1; k <= 4; ++k) session.Value[2][k] = GetParam().values[k];
  session.ElementType[3] = SeriesInductor;
  session.Value[3] = {0, 0.3e-6, 200};
  const auto values = session.Value;

  const std::vector<PathPoint> path = TraceNetworkPath(session);
  ASSERT_EQ(path.size(), 5000u);  // stages 4 and 5 are empty: their stretches stand still
  EXPECT_EQ(session.Value, values);
  EXPECT_LT(Distance(path[0].gamma, ImpedanceToGamma(30, -20, 50)), 0.01);
  for (int stage = 2; stage <= 3; ++stage) {
    const std::size_t first = 1000 * (stage - 1);
    EXPECT_EQ(path[first].stage, stage);
    EXPECT_EQ(path[first - 1].stage, stage - 1);
    EXPECT_LT(Distance(path[first].gamma, path[first - 1].gamma), 0.01) << "stage " << stage;
  }
  Session full = session;
  CalculateNetwork(full, 1);
  EXPECT_LT(Distance(path.back().gamma, ImpedanceToGamma(full.InputR, full.InputX, 50)), 0.001);
}

INSTANTIATE_TEST_SUITE_P(
    AllThirteen, NetworkPaths,
    ::testing::Values(PathCase{"series C", SeriesCapacitor, {0, 220e-12, 500}},
                      PathCase{"shunt C", ShuntCapacitor, {0, 220e-12, 500}},
                      PathCase{"series L", SeriesInductor, {0, 2e-6, 150}},
                      PathCase{"shunt L", ShuntInductor, {0, 2e-6, 150}},
                      PathCase{"line", SeriesLine, {0, 40, 10e6, 75}},
                      PathCase{"series shorted stub", SeriesShortedStub, {0, 40, 10e6, 75}},
                      PathCase{"series open stub", SeriesOpenStub, {0, 40, 10e6, 75}},
                      PathCase{"shunt shorted stub", ShuntShortedStub, {0, 40, 10e6, 75}},
                      PathCase{"shunt open stub", ShuntOpenStub, {0, 40, 10e6, 75}},
                      PathCase{"shunt series LC", ShuntSeriesLC, {0, 1e-6, 100, 300e-12, 800}},
                      PathCase{"series parallel LC", SeriesParallelLC, {0, 1e-6, 100, 300e-12, 800}},
                      PathCase{"series R", SeriesResistor, {0, 15}},
                      PathCase{"shunt R", ShuntResistor, {0, 15}}),
    [](const auto& info) { return testing::TestName(info.param.name); });

// Two series resistors of 1E+308 overflow the calculation: those points are
// left out rather than drawn at infinite or undefined places.
TEST(NetworkPath, SkipsPointsThatAreNotFinite) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.ChartRadius = 3000;
  session.ElementType = {0, SeriesResistor, SeriesResistor, ShuntResistor};
  session.Value[1][1] = 1e308;
  session.Value[2][1] = 1e308;
  session.Value[3][1] = 50;
  DisplayList list;
  DrawNetworkArcs(session, list);
  for (const DrawCommand& c : list.Commands()) {
    ASSERT_TRUE(std::isfinite(c.a.x) && std::isfinite(c.a.y) && std::isfinite(c.b.x) &&
                std::isfinite(c.b.y));
  }
  EXPECT_LT(TraceNetworkPath(session).size(), 5000u);
}

}  // namespace
}  // namespace kalvex
