#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "analyser_measurement.h"
#include "simulated_load.h"
#include "support/simulated_analyser_process.h"

namespace kalvex {
namespace {

using testing::SimulatedAnalyserProcess;

// The simulator's default antenna.
const SimulatedLoad kAntenna = SimulatedLoad::Antenna(60, 14.15e6, 12);
constexpr Milliseconds kShortTimeout = 400;

// The frequency of point k of the plan, as the analyser is asked for it.
double GridFrequency(const SweepPlan& plan, int k) {
  return std::round(plan.start + (plan.stop - plan.start) * k / (plan.points - 1));
}

// Every point is one of the plan's frequencies, rising, and its impedance is
// the load's there (to the nine decimals the analyser prints S11 with).
void ExpectPointsOfLoad(const MeasuredSweep& sweep, const SweepPlan& plan, const SimulatedLoad& load,
                        const std::string& name) {
  int k = 0;
  for (const MeasuredPoint& point : sweep.points) {
    while (k < plan.points && std::abs(GridFrequency(plan, k) - point.frequency) > 1.5) ++k;
    ASSERT_LT(k, plan.points) << name << ": " << point.frequency << " Hz is not in the plan, or out of order";
    ++k;
    const std::complex<double> measured = ImpedanceOfS11(point.s11);
    const std::complex<double> expected = load.ImpedanceAt(point.frequency);
    EXPECT_LE(std::abs(measured - expected), 1e-5 * std::abs(expected) + 1e-6) << name << " at " << point.frequency;
  }
}

// A well-behaved analyser gives every point of the plan, whether in one scan,
// in several, or the old way on firmware without scan; on its own antenna or
// on the load of a file. From a faulty line or device, malformed lines are
// counted and never become points, missing ones just leave their points out,
// and a device that stalls or vanishes ends the run with a message, the
// finished sweeps kept.
TEST(SimulatedAnalyserTest, GivesTheLoadsImpedanceOrSaysWhatWentWrong) {
  struct Case {
    const char* name;
    std::vector<std::string> simulator;
    SweepPlan plan;
    int sweepsAsked = 1;
    std::size_t sweepsFinished = 1;
    int pointsOfFirst = -1;  // -1: every point of the plan, from a device that works
    int leftOutOfFirst = 0;
    const char* failure = "";  // the start of the message, "" for none
    SimulatedLoad load = kAntenna;
  };
  const std::string file = KALVEX_EXAMPLES_DIR "/dipole20m.RJX";
  std::string messages;
  const SweepPlan plan{10e6, 20e6, 101};
  const char* const stalled = "The analyser stopped answering: nothing came for";
  const char* const vanished = "The analyser went away in the middle of a sweep";
  for (const Case& c : {
           Case{"one scan", {}, {13e6, 15e6, 51}}, Case{"the largest single scan", {}, {1e6, 30e6, 101}},
           Case{"three scans", {}, {1e6, 30e6, 250}}, Case{"a table of 1000 points", {}, {100e3, 900e6, 1000}},
           Case{"firmware without scan", {"--no-scan"}, {13e6, 15e6, 51}},
           Case{"firmware without scan, segmented", {"--no-scan"}, {10e6, 20e6, 150}},
           Case{"a load file", {"--load", file}, {13.9e6, 14.5e6, 61}, 1, 1, -1, 0, "",
                SimulatedLoad::FromFile(file, messages)},
           Case{"every 10th line garbled", {"--garble-every", "10"}, plan, 1, 1, 91, 10},
           Case{"every 10th line garbled, no scan", {"--garble-every", "10", "--no-scan"}, plan, 1, 1, 81, 20},
           Case{"every 25th line dropped", {"--drop-every", "25"}, plan, 1, 1, 97},
           // Frequencies and data no longer pair once lines are missing.
           Case{"every 25th line dropped, no scan", {"--drop-every", "25", "--no-scan"}, plan, 1, 1, 0, 97},
           Case{"stalls in the second sweep", {"--stall-after", "150"}, plan, 3, 1, 101, 0, stalled},
           Case{"vanishes in the second sweep", {"--vanish-after", "150"}, plan, 3, 1, 101, 0, vanished},
           Case{"vanishes before any sweep", {"--vanish-after", "50"}, plan, 1, 0, 0, 0, vanished},
           Case{"stalls in the first sweep", {"--stall-after", "1"}, plan, 1, 0, 0, 0, stalled},
       }) {
    std::vector<std::string> arguments = c.simulator;
    arguments.insert(arguments.end(), {"--scan-time", "0"});
    const SimulatedAnalyserProcess simulator(arguments);
    const bool works = c.pointsOfFirst < 0;
    const AnalyserMeasurement measurement =
        MeasureOnPort(simulator.Port(), c.plan, c.sweepsAsked, *c.failure ? kShortTimeout : kAnalyserTimeout);
    EXPECT_TRUE(measurement.failure.starts_with(c.failure)) << c.name << ": " << measurement.failure;
    EXPECT_EQ(measurement.failure.empty(), std::string(c.failure).empty()) << c.name;
    ASSERT_EQ(measurement.sweeps.size(), c.sweepsFinished) << c.name;
    if (c.sweepsFinished == 0) continue;
    const MeasuredSweep& first = measurement.sweeps.front();
    EXPECT_EQ(std::ssize(first.points), works ? c.plan.points : c.pointsOfFirst) << c.name;
    EXPECT_EQ(first.leftOutLines, c.leftOutOfFirst) << c.name;
    if (works) {
      EXPECT_EQ(measurement.takesScan, c.simulator.empty() || c.simulator[0] != "--no-scan") << c.name;
      EXPECT_EQ(measurement.version, "kalvex-sim-vna 1.0") << c.name;
    }
    ExpectPointsOfLoad(first, c.plan, c.load, c.name);
  }
}

// What the shell sent before the echo of a command (the end of an earlier
// host's scan, a stray prompt) is not its answer, and an answer may come a
// byte at a time.
TEST(AnalyserLinkTest, TakesTheAnswerAfterItsEchoWhateverTheChunks) {
  AnalyserLink link({13e6, 15e6, 3}, 1, 0);
  EXPECT_EQ(link.TakeOutgoing(), "\r");
  link.Receive("14000000 0.1 0.2\r\nch> ", 1);
  EXPECT_EQ(link.TakeOutgoing(), "version\r");
  link.Receive("\r\nch> \r\nch> version\r\n1.0-test\r\nch> ", 2);
  EXPECT_EQ(link.Version(), "1.0-test");
  EXPECT_EQ(link.TakeOutgoing(), "info\r");
  link.Receive("info\r\nBoard: test\r\nch> ", 3);
  EXPECT_EQ(link.TakeOutgoing(), "scan 13000000 15000000 3 3\r");
  const std::string answer =
      "scan 13000000 15000000 3 3\r\n13000000 0.5 0\r\n14000000 0 0.25\r\n15000000 -0.5 0\r\nch> ";
  for (const char c : answer) link.Receive(std::string(1, c), 4);
  const auto sweep = link.TakeSweep();
  ASSERT_TRUE(sweep.has_value());
  ASSERT_EQ(sweep->points.size(), 3u);
  EXPECT_EQ(sweep->points[1].frequency, 14e6);
  EXPECT_EQ(sweep->points[1].s11, std::complex<double>(0, 0.25));
  EXPECT_TRUE(link.Done());
  EXPECT_EQ(link.TakeOutgoing(), "");
}

// Noise is counted and never kept: a line far longer than any answer's, and
// lines of a scan that are numbers but no measurement of the plan.
TEST(AnalyserLinkTest, LeavesOutLinesThatAreNoMeasurement) {
  AnalyserLink link({13e6, 15e6, 3}, 1, 0);
  for (const char* answer : {"ch> ", "version\r\n1.0\r\nch> ", "info\r\nch> "}) {
    link.TakeOutgoing();
    link.Receive(answer, 0);
  }
  ASSERT_EQ(link.TakeOutgoing(), "scan 13000000 15000000 3 3\r");
  link.Receive("scan 13000000 15000000 3 3\r\n" + std::string(100'000, '7') +
                   "\r\n"
                   "13000000 0.5 0\r\n"
                   "12000000 0.5 0\r\n"       // outside the scan
                   "13000000 0.4 0\r\n"       // not above the last one
                   "14000000 20 0\r\n"        // far outside the unit circle
                   "14000000 0.1 0 7\r\n"     // a field too many
                   "14000000 nan 0\r\n"       // not finite
                   "15000000 -0.5 0\r\n"
                   "16000000 -0.5 0\r\nch> ",  // beyond the scan
               1);
  const auto sweep = link.TakeSweep();
  ASSERT_TRUE(sweep.has_value());
  ASSERT_EQ(sweep->points.size(), 2u);
  EXPECT_EQ(sweep->points[0].s11, std::complex<double>(0.5, 0));
  EXPECT_EQ(sweep->points[1].frequency, 15e6);
  EXPECT_EQ(sweep->leftOutLines, 7);
}

// A shell that knows none of the measuring commands is no analyser.
TEST(AnalyserLinkTest, ADeviceThatMeasuresNothingIsSaidSo) {
  AnalyserLink link({13e6, 15e6, 3}, 1, 0);
  link.TakeOutgoing();
  link.Receive("ch> ", 0);
  for (const char* command : {"version", "info", "scan", "sweep", "frequencies", "data"}) {
    const std::string sent = link.TakeOutgoing();
    ASSERT_TRUE(sent.starts_with(command)) << sent;
    link.Receive(sent.substr(0, sent.size() - 1) + "\r\n" + command + "?\r\nch> ", 0);
  }
  EXPECT_EQ(link.Failure(), "The device answers neither scan nor sweep, frequencies and data as an analyser does.");
  EXPECT_FALSE(link.TakeSweep().has_value());
}

// (A missing port is tried through kalvex-cli measure.)
TEST(SimulatedAnalyserTest, APortThatIsNoAnalyserIsSaidSo) {
  const AnalyserMeasurement notATerminal = MeasureOnPort("/dev/null", {}, 1, kShortTimeout);
  EXPECT_TRUE(notATerminal.failure.starts_with("cannot open /dev/null: not a serial port")) << notATerminal.failure;
}

}  // namespace
}  // namespace kalvex
