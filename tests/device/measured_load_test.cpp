#include <gtest/gtest.h>

#include <cmath>

#include "cli/cli_test.h"
#include "device/measured_sweep.h"
#include "device/sweep_plan.h"
#include "files/load_data_file.h"
#include "simulated_load.h"
#include "support/fake_dialogs.h"
#include "support/simulated_analyser_process.h"

namespace kalvex {
namespace {

// Wide sweeps are cut into scans the analyser takes: together exactly the
// plan's frequencies, each once, rising, none over the limit, none of one point.
TEST(SegmentSweepTest, CoversThePlanOnceInScansWithinTheLimit) {
  struct Case {
    SweepPlan plan;
    int most;
    std::size_t scans;
  };
  for (const Case& c : {Case{{1e6, 30e6, 2}, 101, 1}, Case{{1e6, 30e6, 101}, 101, 1},
                        Case{{1e6, 30e6, 102}, 101, 2}, Case{{100e3, 900e6, 1000}, 101, 10},
                        Case{{14e6, 14.35e6, 301}, 101, 3}, Case{{1e6, 2e6, 11}, 4, 3}}) {
    const std::vector<ScanSegment> scans = SegmentSweep(c.plan, c.most);
    ASSERT_EQ(scans.size(), c.scans) << c.plan.points;
    int k = 0;
    for (const ScanSegment& scan : scans) {
      EXPECT_GE(scan.points, 2);
      EXPECT_LE(scan.points, c.most);
      const double exact = c.plan.start + (c.plan.stop - c.plan.start) * k / (c.plan.points - 1);
      EXPECT_EQ(scan.start, std::llround(exact)) << "scan starting at point " << k;
      k += scan.points;
      const double last = c.plan.start + (c.plan.stop - c.plan.start) * (k - 1) / (c.plan.points - 1);
      EXPECT_EQ(scan.stop, std::llround(last)) << "scan ending at point " << k - 1;
    }
    EXPECT_EQ(k, c.plan.points);
  }
}

TEST(SweepPlanTest, RefusesWhatTheAnalyserCannotSweep) {
  for (const SweepPlan& plan : {SweepPlan{5e3, 30e6, 101}, SweepPlan{1e6, 7e9, 101}, SweepPlan{30e6, 1e6, 101},
                                SweepPlan{1e6, 1e6, 101}, SweepPlan{1e6, 30e6, 1}, SweepPlan{1e6, 30e6, 1001},
                                SweepPlan{NAN, 30e6, 101}}) {
    EXPECT_STRNE(PlanProblem(plan), "") << plan.start << ".." << plan.stop << " in " << plan.points;
  }
  EXPECT_STREQ(PlanProblem({10e3, 6e9, 1000}), "");
}

MeasuredSweep SweepOf(std::vector<std::pair<double, std::complex<double>>> points) {
  MeasuredSweep sweep;
  for (const auto& [f, s11] : points) sweep.points.push_back({f, s11});
  return sweep;
}

// A sweep becomes the load data as a load-data file would; the working point
// stays where the user moved it while sweeps of one size follow; an open
// circuit's point has no impedance and is left out; Stop brings back the load
// of before and keeps the parts as tuned.
TEST(MeasuredLoadTest, ReplacesTheLoadDataAndGivesItBack) {
  auto session = std::make_unique<Session>(testing::SessionOnLoad(50, 0, 1e6));
  testing::SweepOver(*session, 3e6, 4e6, 7);
  const NetworkState before = NetworkStateOf(*session);

  const MeasuredSweep sweep = SweepOf({{1e6, 0.0}, {2e6, {0.2, 0.1}}, {3e6, 1.0}, {4e6, {-0.5, 0}}});
  ASSERT_EQ(TakeMeasuredLoad(*session, sweep), 3);
  EXPECT_EQ(std::tuple(session->LoadSource, session->SweepPoints, session->SweepStart, session->SweepStop,
                       session->DataIndex, session->Frequency), std::tuple(2, 3, 1e6, 4e6, 2, 2e6));
  const std::complex<double> z = ImpedanceOfS11({0.2, 0.1});
  EXPECT_DOUBLE_EQ(session->Value[0][1], z.real());
  EXPECT_DOUBLE_EQ(session->Value[0][2], z.imag());
  EXPECT_DOUBLE_EQ(session->LoadR[3], 50.0 / 3);  // S11 -0.5

  session->DataIndex = 3;
  TakeMeasuredLoad(*session, SweepOf({{1e6, 0.0}, {2e6, 0.0}, {4e6, {0.6, 0}}}));
  EXPECT_EQ(session->DataIndex, 3);
  EXPECT_EQ(session->Frequency, 4e6);
  EXPECT_DOUBLE_EQ(session->Value[0][1], 200);

  EXPECT_EQ(TakeMeasuredLoad(*session, SweepOf({{1e6, 1.0}})), 0);
  EXPECT_EQ(session->SweepPoints, 3) << "a sweep of nothing usable changes nothing";

  session->Value[1][1] = 5e-12;  // a part tuned while measuring
  RestoreLoad(*session, before);
  EXPECT_EQ(session->Value[1][1], 5e-12);
  EXPECT_EQ(std::tuple(session->LoadSource, session->SweepPoints, session->SweepStart, session->Value[0][1],
                       session->Frequency), std::tuple(1, 7, 3e6, 50, 1e6));
}

using MeasureCommandTest = testing::CliTest;

// kalvex-cli measure: averaged sweeps as a Touchstone file that reads as load data
// at once, with the load's impedances; a point a garbled line took from one
// sweep is the average of the sweeps that have it.
TEST_F(MeasureCommandTest, WritesAFileThatLoadsAsTheAntenna) {
  const testing::SimulatedAnalyserProcess simulator({"--scan-time", "0", "--garble-every", "40"});
  ASSERT_EQ(Run({"measure", "--port", simulator.Port(), "--start", "13M", "--stop", "15M", "--points", "21",
                 "--sweeps", "3", "-o", PathOf("antenna.s1p")}), kExitOk)
      << err.str();
  EXPECT_NE(err.str().find("1 malformed line from kalvex-sim-vna 1.0 left out"), std::string::npos) << err.str();
  const std::string text = ReadFile("antenna.s1p");
  EXPECT_NE(text.find("\n# Hz S RI R 50\n"), std::string::npos) << text;
  EXPECT_NE(text.find("the average of 3 sweeps"), std::string::npos) << text;

  auto session = std::make_unique<Session>();
  testing::FakeDialogs dialogs;
  ASSERT_TRUE(ApplyLoadDataFile(*session, dialogs, PathOf("antenna.s1p")));
  ASSERT_EQ(session->SweepPoints, 21);
  const SimulatedLoad antenna = SimulatedLoad::Antenna(60, 14.15e6, 12);
  for (int k = 1; k <= 21; ++k) {
    EXPECT_DOUBLE_EQ(session->LoadFreq[k], 13e6 + 1e5 * (k - 1));
    const std::complex<double> expected = antenna.ImpedanceAt(session->LoadFreq[k]);
    EXPECT_LE(std::abs(std::complex(session->LoadR[k], session->LoadX[k]) - expected), 1e-5 * std::abs(expected));
  }
}

}  // namespace
}  // namespace kalvex
