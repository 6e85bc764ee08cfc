#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "model/batch_calculate.h"
#include "model/calculate.h"
#include "model/network_abcd.h"
#include "model/network_state.h"
#include "support/networks.h"

namespace kalvex {
namespace {

using Complex = std::complex<double>;
using testing::InputAt;

// A block's table: S21 = S12 turning from 0 degrees at 1 MHz to -170 at
// 100 MHz, with a little reflection, more at port 2 (so that exchanging the
// ports shows), as a lossy delay line with a poor connector measures.
std::shared_ptr<const TwoPortTable> DelayTable() {
  std::vector<TwoPortTable::Point> points;
  for (const double f : {1e6, 10e6, 40e6, 100e6}) {
    const double turn = -170 * std::numbers::pi / 180 * (f / 100e6);
    const Complex through = std::polar(0.95, turn);
    const Complex back = std::polar(0.1, 2 * turn);
    points.push_back({f, {{back, through, through, 3.0 * back}}});
  }
  return std::make_shared<const TwoPortTable>(std::move(points), 50);
}

Session WithBlock(int placement, bool swapped = false, bool shorted = false) {
  Session session = testing::NetworkAround({"block", TwoPort, {0, double(placement), swapped ? 1. : 0., shorted ? 1. : 0.}});
  session.TwoPortBlocks[2] = {"delay.s2p", DelayTable()};
  return session;
}

// The whole network's chain matrix holds the impedances of every stage's own
// calculation: a load on its port 2 is seen from port 1 as CalculateNetwork
// sees it, for every type, the block in each placement among them; and the
// batch hands each block its table and placement as the calculation does.
TEST(NetworkAbcdTest, LoadSeenThroughTheMatrixOrTheBatchIsTheCalculatedInputImpedance) {
  std::vector<testing::Part> parts = testing::ThirteenParts();
  parts.insert(parts.end(), testing::FeedParts().begin(), testing::FeedParts().end());
  std::vector<std::pair<std::string, Session>> networks;
  for (const testing::Part& part : parts) networks.emplace_back(part.name, testing::NetworkAround(part));
  networks.emplace_back("cascade block", WithBlock(1));
  networks.emplace_back("swapped cascade block", WithBlock(1, true));
  networks.emplace_back("swapped series block", WithBlock(2, true));
  networks.emplace_back("shunt block, port 2 shorted", WithBlock(3, false, true));
  for (auto& [name, session] : networks) {
    const std::vector<double> f = {3e6, 10e6, 27e6};
    std::vector<double> r(f.size(), 30), x(f.size(), -20);
    NetworkBatch(session).Calculate(f, r, x);
    for (std::size_t k = 0; k < f.size(); ++k) {
      SCOPED_TRACE(name + " at " + std::to_string(f[k]));
      const Complex expected = InputAt(session, f[k]);
      const Impedance seen = SeenThrough(*NetworkAbcd(session, f[k]), {30, -20});
      EXPECT_LE(std::abs(Complex(seen.R, seen.X) - expected), 1e-9 * std::abs(expected));
      EXPECT_LE(std::abs(Complex(r[k], x[k]) - expected), 1e-12 * std::abs(expected));
    }
  }
}

// Between two points a block's parameters follow magnitude and phase: the
// through path of a lossless quarter turn is still lossless half way.
TEST(TwoPortTableTest, InterpolatesMagnitudeAndUnwrappedPhaseAndRefusesOutsideItsRange) {
  const Complex quarterTurn = std::polar(1.0, -std::numbers::pi / 2);
  // Phases of 170 and -170 degrees are 20 degrees apart, not 340.
  const Complex wrapped = std::polar(0.5, 170 * std::numbers::pi / 180);
  const TwoPortTable table({{1e6, {{0.5, 1.0, 1.0, wrapped}}}, {3e6, {{0.3, quarterTurn, quarterTurn, std::conj(wrapped)}}}}, 50);
  const SMatrix half = *table.At(2e6);
  EXPECT_NEAR(std::abs(half.S21()), 1, 1e-12);
  EXPECT_NEAR(std::arg(half.S21()), -std::numbers::pi / 4, 1e-12);
  EXPECT_NEAR(std::abs(half.S11() - 0.4), 0, 1e-12);
  EXPECT_NEAR(std::abs(half.S22() - Complex(-0.5, 0)), 0, 1e-12);
  EXPECT_NEAR(std::abs(table.At(1e6)->S21() - 1.0), 0, 1e-15);
  EXPECT_FALSE(table.At(0.999e6) || table.At(3.001e6));
  EXPECT_EQ(CoveredRange(table), "1 MHz to 3 MHz");
}

TEST(TwoPortBlockTest, OutsideItsFileTheBlockGivesNoImpedanceAndTheRangeIsNamed) {
  Session session = WithBlock(1);
  EXPECT_TRUE(std::isnan(InputAt(session, 150e6).real()));
  EXPECT_FALSE(NetworkAbcd(session, 150e6));
  EXPECT_EQ(BlockRangeProblem(session, 1e6, 100e6), "");
  EXPECT_EQ(BlockRangeProblem(session, 2e6, 150e6),
            "The two-port block in stage 2 (delay.s2p) covers 1 MHz to 100 MHz, not 2 MHz to 150 MHz.");
  session.Frequency = 150e6;
  EXPECT_EQ(MatchStatusText(session), BlockRangeProblem(session, 150e6, 150e6));
  session.Frequency = 50e6;
  EXPECT_EQ(MatchStatusText(session).rfind("Input ", 0), 0u);
  session.TwoPortBlocks[2].table = nullptr;  // a stage with no data is passed over
  EXPECT_TRUE(std::isfinite(InputAt(session, 150e6).real()));
}

}  // namespace
}  // namespace kalvex
