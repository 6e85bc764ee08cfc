#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "model/feed_parts.h"
#include "model/network_loss.h"

namespace kalvex {
namespace {

constexpr double kF = 14.2e6;
constexpr double kOmega = 2 * std::numbers::pi * kF;
const std::array<double, kSlotCount> kRG58_30m = {0, 30, 50, 0.66, 1.3807, 0.022686};

struct Stage {
  int16_t type;
  std::array<double, kSlotCount> slots;
};

Session Network(double r, double x, std::initializer_list<Stage> stages) {
  Session session;
  InitialiseSession(session);
  session.LoadSource = 1;
  session.Frequency = kF;
  session.Value[0] = {0, r, x};
  int s = 1;
  for (const Stage& stage : stages) {
    session.ElementType[s] = stage.type;
    session.Value[s++] = stage.slots;
  }
  return session;
}

double MatchedDb() { return CableMatchedLossDb(CableOf(kRG58_30m), kF); }

// A line of loss a = e^(2 alpha l) into a load of reflection |G| takes
// 10 log10((a^2 - |G|^2) / (a (1 - |G|^2))) dB of the power sent into it.
double MismatchedCableDb(double loadR) {
  const double a = std::pow(10.0, MatchedDb() / 10);
  const double g = std::fabs((loadR - 50) / (loadR + 50));
  return 10 * std::log10((a * a - g * g) / (a * (1 - g * g)));
}

// A series inductor of Q 50 into 50 ohms: its loss resistance X/Q in series.
double SeriesInductorDb() {
  const double lossR = kOmega * 1e-6 / 50;
  return 10 * std::log10((50 + lossR) / 50);
}

// A shunt capacitor of Q 100 across 200 ohms: the branch r - jXc, r = Xc/Q,
// takes r / (r^2 + Xc^2) of conductance beside the load's 1/200.
double ShuntCapacitorDb() {
  const double xc = 1 / (kOmega * 47e-12);
  const double r = xc / 100;
  return 10 * std::log10((1.0 / 200 + r / (r * r + xc * xc)) / (1.0 / 200));
}

TEST(NetworkLoss, AgreesWithTheClosedForms) {
  struct Case {
    const char* name;
    Session session;
    double db;
  } const cases[] = {
      {"matched cable", Network(50, 0, {{CoaxialCable, kRG58_30m}}), MatchedDb()},
      {"cable into 150 ohm", Network(150, 0, {{CoaxialCable, kRG58_30m}}), MismatchedCableDb(150)},
      {"cable into 12 ohm", Network(12, 0, {{CoaxialCable, kRG58_30m}}), MismatchedCableDb(12)},
      {"lossless parts, line and transformer",
       Network(2450, 300,
               {{Transformer, {0, 49, 20e-6, 0.2e-6}},
                {SeriesLine, {0, 40, kF, 75}},
                {ShuntCapacitor, {0, 100e-12, 0}},
                {SeriesInductor, {0, 1e-6, 0}},
                {ShuntOpenStub, {0, 20, kF, 50}}}),
       0},
      {"series inductor of Q 50", Network(50, 0, {{SeriesInductor, {0, 1e-6, 50}}}), SeriesInductorDb()},
      {"shunt capacitor of Q 100", Network(200, 0, {{ShuntCapacitor, {0, 47e-12, 100}}}), ShuntCapacitorDb()},
      {"the two behind a lossless line",
       Network(200, 0, {{ShuntCapacitor, {0, 47e-12, 100}}, {SeriesLine, {0, 33, kF, 100}}}),
       ShuntCapacitorDb()},
  };
  for (const Case& c : cases) {
    const auto db = NetworkLossDb(c.session, 1);
    ASSERT_TRUE(db.has_value()) << c.name;
    EXPECT_NEAR(*db, c.db, 1e-9 * std::max(1.0, c.db)) << c.name;
  }
  EXPECT_GT(MismatchedCableDb(150), MatchedDb() + 0.1);  // the standing wave costs something
}

TEST(NetworkLoss, NoPowerReachesALoadWithoutResistance) {
  EXPECT_FALSE(NetworkLossDb(Network(0, 30, {{CoaxialCable, kRG58_30m}}), 1).has_value());
}

TEST(NetworkLoss, EachCableItsMatchedLoss) {
  const Session session =
      Network(2450, 0, {{Transformer, {0, 49}}, {CoaxialCable, kRG58_30m}, {SeriesInductor, {0, 1e-6}}});
  const std::vector<CableLoss> losses = CableMatchedLosses(session, 1);
  ASSERT_EQ(losses.size(), 1u);
  EXPECT_EQ(losses[0].stage, 2);
  // 30 m of RG-58 at 14.2 MHz: (1.3807 sqrt(14.2) + 0.022686 * 14.2) * 0.3 dB.
  EXPECT_NEAR(losses[0].matchedDb, 0.3 * (1.3807 * std::sqrt(14.2) + 0.022686 * 14.2), 1e-12);
}

}  // namespace
}  // namespace kalvex
