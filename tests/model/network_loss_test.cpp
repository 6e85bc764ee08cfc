#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <memory>
#include <numbers>

#include "model/feed_parts.h"
#include "model/network_loss.h"
#include "support/session_setup.h"

namespace kalvex {
namespace {

constexpr double kF = 14.2e6;
constexpr double kOmega = 2 * std::numbers::pi * kF;
const std::array<double, 6> kRG58 = {0, 30, 50, 0.66, 1.3807, 0.022686};
// 30 m of RG-58 at 14.2 MHz: (1.3807 sqrt(14.2) + 0.022686 * 14.2) * 0.3 dB.
const double kMatchedDb = 0.3 * (1.3807 * std::sqrt(14.2) + 0.022686 * 14.2);

Session Network(double r, double x, const std::vector<testing::StagePart>& stages) {
  return testing::WithStages(testing::SessionOnLoad(r, x, kF), stages);
}

// A line of loss a = e^(2 alpha l) into a load of reflection |G| takes
// 10 log10((a^2 - |G|^2) / (a (1 - |G|^2))) dB.
double MismatchedCableDb(double loadR) {
  const double a = std::pow(10.0, kMatchedDb / 10);
  const double g = (loadR - 50) / (loadR + 50);
  return 10 * std::log10((a * a - g * g) / (a * (1 - g * g)));
}

// A shunt 47 pF of Q 100 across 200 ohms: the branch r - jXc, r = Xc / Q,
// adds r / (r^2 + Xc^2) to the load's conductance.
const double kXc = 1 / (kOmega * 47e-12);
const double kShuntCDb = 10 * std::log10(1 + 200 * (kXc / 100) / (kXc * kXc / 1e4 + kXc * kXc));

TEST(NetworkLoss, AgreesWithTheClosedForms) {
  struct Case { const char* name; Session session; double db; } const cases[] = {
      {"matched cable", Network(50, 0, {{CoaxialCable, kRG58}}), kMatchedDb},
      {"cable into 150 ohm", Network(150, 0, {{CoaxialCable, kRG58}}), MismatchedCableDb(150)},
      {"cable into 12 ohm", Network(12, 0, {{CoaxialCable, kRG58}}), MismatchedCableDb(12)},
      {"lossless parts, line, stub and transformer",
       Network(2450, 300, {{Transformer, {0, 49, 20e-6, 0.2e-6}}, {SeriesLine, {0, 40, kF, 75}},
                           {ShuntCapacitor, {0, 100e-12, 0}}, {SeriesInductor, {0, 1e-6, 0}},
                           {ShuntOpenStub, {0, 20, kF, 50}}}),
       0},
      // Its loss resistance X / Q in series with 50 ohms.
      {"series 1 uH of Q 50", Network(50, 0, {{SeriesInductor, {0, 1e-6, 50}}}),
       10 * std::log10(1 + kOmega * 1e-6 / 50 / 50)},
      {"shunt 47 pF of Q 100, behind a line", Network(200, 0, {{ShuntCapacitor, {0, 47e-12, 100}},
                                                               {SeriesLine, {0, 33, kF, 100}}}),
       kShuntCDb},
  };
  for (const Case& c : cases) {
    const auto db = NetworkLossDb(c.session, 1);
    ASSERT_TRUE(db.has_value()) << c.name;
    EXPECT_NEAR(*db, c.db, 1e-9 * std::max(1.0, c.db)) << c.name;
  }
  EXPECT_FALSE(NetworkLossDb(Network(0, 30, {{CoaxialCable, kRG58}}), 1).has_value()) << "no power reaches it";

  // A matched 3 dB attenuator as a block takes what the same T of resistors
  // takes, into a load it does not match.
  const double k = std::pow(10.0, 3.0 / 20);
  const double series = 50 * (k - 1) / (k + 1);
  const double shunt = 2 * 50 * k / (k * k - 1);
  const std::complex<double> through = 1 / k;
  Session block = Network(150, -40, {{TwoPort, {0, 1}}});
  block.TwoPortBlocks[1].table = std::make_shared<const TwoPortTable>(
      std::vector<TwoPortTable::Point>{{1e6, {{0, through, through, 0}}}, {30e6, {{0, through, through, 0}}}}, 50);
  const Session resistors =
      Network(150, -40, {{SeriesResistor, {0, series}}, {ShuntResistor, {0, shunt}}, {SeriesResistor, {0, series}}});
  EXPECT_NEAR(*NetworkLossDb(block, 1), *NetworkLossDb(resistors, 1), 1e-9);
  block.Frequency = 40e6;
  EXPECT_FALSE(NetworkLossDb(block, 1).has_value()) << "outside the block's file";
  const std::vector<CableLoss> cables = CableMatchedLosses(Network(2450, 0, {{Transformer, {0, 49}}, {CoaxialCable, kRG58}}), 1);
  ASSERT_EQ(cables.size(), 1u);
  EXPECT_EQ(cables[0].stage, 2);
  EXPECT_NEAR(cables[0].matchedDb, kMatchedDb, 1e-12);
}

}  // namespace
}  // namespace kalvex
