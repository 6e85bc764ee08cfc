#include <gtest/gtest.h>

#include <cmath>

#include "chart/chart_view.h"
#include "chart/network_path.h"
#include "model/calculate.h"
#include "support/drawing_queries.h"
#include "support/thirteen_parts.h"

namespace kalvex {
namespace {

class NetworkPaths : public ::testing::TestWithParam<testing::Part> {};

double Distance(Gamma a, Gamma b) { return std::hypot(a.u - b.u, a.v - b.v); }

// Every stage's stretch starts where the one before ended (the first on the
// load), and the path ends at the network's input impedance.
TEST_P(NetworkPaths, EachStageGrowsFromWhereTheLastEnded) {
  Session session = testing::NetworkAround(GetParam());
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
  CalculateNetwork(session, 1);
  EXPECT_LT(Distance(path.back().gamma, ImpedanceToGamma(session.InputR, session.InputX, 50)),
            0.001);
}

INSTANTIATE_TEST_SUITE_P(AllThirteen, NetworkPaths, ::testing::ValuesIn(testing::ThirteenParts()),
                         testing::PartName);

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
