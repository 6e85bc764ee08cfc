#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_test.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;
using testing::Holds;

// A command's words with a refusal expected: what standard error must name
// (the option, or the range) and its exit code.
struct Refusal { std::vector<std::string> words; std::string named; int exitCode = kExitUsage; };

class ArgumentsTest : public testing::CliTest {
 protected:
  // Runs `command` FILE `words` (NET stands for the network file, OUT for an
  // output file) for every case: the exit code, the option named, the usage
  // after a refusal, nothing on standard output and no file written.
  void ExpectRefusals(const std::string& command, const std::vector<Refusal>& cases,
                      bool withFile = true) {
    for (const Refusal& c : cases) {
      std::vector<std::string> words = {command};
      if (withFile) words.push_back(PathOf("net.SSF"));
      for (const std::string& word : c.words) {
        words.push_back(word == "NET" ? PathOf("net.SSF") : word == "OUT" ? PathOf("out.png") : word);
      }
      std::string shown = command;
      for (const std::string& word : c.words) shown += " '" + word + "'";
      SCOPED_TRACE(shown);
      fs::remove(PathOf("out.png"));
      EXPECT_EQ(Run(words), c.exitCode) << err.str();
      EXPECT_TRUE(Holds(err.str(), c.named)) << err.str();
      if (c.exitCode == kExitUsage) {
        EXPECT_TRUE(Holds(err.str(), "usage: kalvex-cli "));
        EXPECT_EQ(out.str(), "");
        EXPECT_FALSE(fs::exists(PathOf("out.png")));
        // An option name taken as -o's value would be written where the test runs.
        for (const char* taken : {"--table", "--bogus"}) EXPECT_FALSE(fs::remove(taken)) << taken;
      }
    }
  }
};

// What every command refuses alike: unknown options, extra words and a
// missing network file.
TEST_F(ArgumentsTest, EveryCommandRefusesMalformedArgumentsByName) {
  // Each with the options it cannot do without.
  for (const auto& [command, needed] : std::vector<std::pair<std::string, std::vector<std::string>>>{
           {"impedance", {}}, {"sweep", {}}, {"spice", {}}, {"match", {}}, {"band", {}},
           {"optimize", {"--free", "1"}}, {"yield", {}}, {"snap", {"--stages", "1"}}, {"bom", {}}}) {
    auto with = [&needed](std::vector<std::string> words) {
      words.insert(words.end(), needed.begin(), needed.end());
      return words;
    };
    ExpectRefusals(command, {{with({"--bogus"}), "--bogus"},
                             {with({"extra"}), "extra"},
                             {with({"NET"}), "net.SSF"}});
    ExpectRefusals(command, {{with({}), "FILE"}}, false);
  }
  ExpectRefusals("frobnicate", {{{}, "unknown command frobnicate"}}, false);
  EXPECT_EQ(Run({}), kExitUsage);
}

// Each command's own options, refused by name. Every number option is read by
// one reader: its refusals are tried once, on impedance --freq. Stage 3 holds
// a part still waiting to be chosen.
TEST_F(ArgumentsTest, EachCommandRefusesItsOwnOptionsByName) {
  network.ElementType[3] = InsertPlaceholder;
  Save();
  const std::vector<std::pair<std::string, std::vector<Refusal>>> commands = {
      {"impedance", {{{"--freq"}, "--freq"}, {{"--freq", ""}, "--freq"}, {{"--freq", "abc"}, "--freq"},
                     {{"--freq", "nan"}, "--freq"}, {{"--freq", "inf"}, "--freq"},
                     {{"--freq", "14M", "--freq", "28M"}, "--freq: given more than once"},
                     {{"--freq", "--bogus"}, "--freq"}, {{"--freq", "2e10"}, "10 kHz to 10 GHz"},
                     {{"--freq", "1e-300"}, "10 kHz to 10 GHz"}, {{"--freq", "-14M"}, "10 kHz to 10 GHz"}}},
      {"sweep", {{{"-o", "--table"}, "-o"}, {{"--load", ""}, "--load"},
                 {{"--points", "5", "--points", "6"}, "--points"}, {{"--start", "inf"}, "--start"},
                 {{"--stop", "words"}, "--stop"}, {{"--load", "x.RJX", "--points", "5"}, "--load"},
                 {{"-o", "NET"}, "-o names the input file"}}},
      {"spice", {{{"-o", "--bogus"}, "-o"}, {{"-o", "a", "-o", "b"}, "-o"}, {{"-o"}, "-o"}}},
      {"match", {{{"--q", "0"}, "--q"}, {{"--q", "1e300"}, "--q"}, {{"--sections", "8"}, "--sections"},
                 {{"--sections", "2.5"}, "--sections"}, {{"--ripple", "1e-300"}, "--ripple"},
                 {{"--kinds", "L,XX"}, "--kinds"}, {{"--kinds", ""}, "--kinds"}, {{"--apply", "1"}, "-o OUT"},
                 {{"--apply", "0", "-o", "OUT"}, "--apply"},
                 {{"--apply", "999", "-o", "OUT"}, "there is no solution 999", kExitFailed}}},
      {"band", {{{"--thresholds", "1"}, "--thresholds"}, {{"--thresholds", "2,nan"}, "--thresholds"},
                {{"--thresholds", "1e300"}, "--thresholds"}, {{"--thresholds", ""}, "--thresholds"},
                {{"--start", "20M", "--stop", "10M"}, "--start"}, {{"--start", "1e30"}, "--start"}}},
      {"optimize", {{{}, "--free"}, {{"--free", "0"}, "--free"}, {{"--free", "6"}, "--free"},
                    {{"--free", "1.5"}, "--free"}, {{"--free", ""}, "--free"}, {{"--free", "--json"}, "--free"},
                    {{"--free", "2"}, "stage 2 holds no part"}, {{"--free", "1,3"}, "stage 3 holds no part"},
                    {{"--free", "1", "--start", "15M", "--stop", "13M"}, "--start"}}},
      {"render", {{{"-o", "OUT"}, "--page"}, {{"--page", "chart", "-o", "OUT"}, "--page"},
                  {{"--page", "design"}, "-o"}, {{"--page", "design", "--page", "band", "-o", "OUT"}, "--page"},
                  {{"--page", "band", "--plot", "", "-o", "OUT"}, "--plot"},
                  {{"--page", "design", "--size", "10x10", "-o", "OUT"}, "--size"},
                  {{"--page", "design", "--screen", "1x", "-o", "OUT"}, "--screen"},
                  {{"--page", "analysis", "--aspect", "2", "-o", "OUT"}, "--aspect"},
                  {{"--page", "analysis", "--grid", "7", "-o", "OUT"}, "--grid"},
                  {{"--page", "analysis", "--zoom", "nan", "-o", "OUT"}, "--zoom"}}},
      {"print", {{{"-o", ""}, "-o"}, {{}, "-o"}, {{"--grid", "0", "-o", "OUT"}, "--grid"},
                 {{"--grid", "2.5", "-o", "OUT"}, "--grid"}, {{"--zoom", "9", "-o", "OUT"}, "--zoom"},
                 {{"--table", "--points", "", "-o", "OUT"}, "--points"}}},
      {"yield", {{{"--tolerance", "Q=5"}, "--tolerance"}, {{"--tolerance", "C=100"}, "--tolerance"},
                 {{"--tolerance", "C5"}, "--tolerance"}, {{"--tolerance", "6=5"}, "--tolerance"},
                 {{"--tolerance", "2=5"}, "stage 2 holds no part"}, {{"--distribution", "flat"}, "--distribution"},
                 {{"--samples", "0"}, "--samples"}, {{"--samples", "2.5"}, "--samples"},
                 {{"--seed", "-1"}, "--seed"}, {{"--vswr", "0.5"}, "--vswr"}}},
      {"snap", {{{}, "--stages"}, {{"--stages", "2"}, "stage 2"},
                {{"--stages", "1", "--series", "C=E25"}, "--series"},
                {{"--stages", "1", "--series", "LINE=E12"}, "--series"}}},
      {"bom", {{{"--json"}, "--json"}}}};
  for (const auto& [command, refusals] : commands) ExpectRefusals(command, refusals);
  ExpectRefusals("measure", {{{}, "--port DEV is needed"},
                             {{"--port", "/dev/null", "--points", "1"}, "outside its range"},
                             {{"--port", "/dev/null", "--sweeps", "2.5"}, "outside its range"},
                             {{"--port", "/dev/null", "--start", "30M", "--stop", "1M"},
                              "the start must lie below the stop"},
                             {{"--port", "/nonexistent/ttyACM0"}, "cannot open /nonexistent/ttyACM0", kExitFailed}},
                 false);
  EXPECT_EQ(Run({"impedance", PathOf("net.SSF"), "--freq", "28M"}), kExitOk);
  EXPECT_EQ(out.str(), "50.0568410511 -56.8410511042\n");
}

// A list option given twice is one list; a stage named twice is one stage.
TEST_F(ArgumentsTest, ListsGivenTwiceAreJoined) {
  SaveNetwork(SeriesInductor, 1e-6, 200);
  const std::string net = PathOf("net.SSF");
  using Words = std::vector<std::string>;
  for (const auto& [twice, once] : std::vector<std::pair<Words, Words>>{
           {{"match", net, "--kinds", "L", "--kinds", "PI"}, {"match", net, "--kinds", "L,PI"}},
           {{"band", net, "--thresholds", "2", "--thresholds", "3"}, {"band", net, "--thresholds", "2,3"}},
           {{"optimize", net, "--free", "1,1"}, {"optimize", net, "--free", "1"}},
           {{"optimize", net, "--free", "1", "--free", "1"}, {"optimize", net, "--free", "1"}}}) {
    ASSERT_EQ(Run(twice), kExitOk) << err.str();
    const std::string joined = out.str();
    ASSERT_EQ(Run(once), kExitOk) << err.str();
    EXPECT_EQ(joined, out.str()) << twice[0];
  }
}

// The sweep settings are reset as the sweep setup resets them, each with one
// line naming the option, the value given and the value used.
TEST_F(ArgumentsTest, SweepResetsSayWhatWasUsed) {
  struct Reset { const char* option; const char* given; const char* line; int points; };  // points: rows of the table
  for (const Reset& r : {
           Reset{"--start", "-14M", "--start -14M is outside 5 kHz to 10 GHz: 5 kHz used", 5},
           Reset{"--start", "1e30", "--start 1e30 is outside 5 kHz to 10 GHz: 10 GHz used", 5},
           Reset{"--stop", "1e30", "--stop 1e30 is outside 5.01 kHz to 10 GHz: 10 GHz used", 5},
           Reset{"--points", "0", "--points 0 is outside 3 to 2000 points: 3 used", 3},
           Reset{"--points", "2.5", "--points 2.5 is outside 3 to 2000 points: 3 used", 3},
           Reset{"--points", "1e30", "--points 1e30 is outside 3 to 2000 points: 2000 used", 2000},
           Reset{"--points", "100000000", "--points 100000000 is outside 3 to 2000 points: 2000 used", 2000}}) {
    EXPECT_EQ(Run({"sweep", PathOf("net.SSF"), r.option, r.given, "--table"}), kExitOk) << r.given;
    EXPECT_EQ(err.str(), std::string("kalvex-cli sweep: ") + r.line + "\n");
    EXPECT_EQ(testing::SplitLines(out.str()).size(), r.points + 1u) << r.given;
  }
  EXPECT_EQ(Run({"sweep", PathOf("net.SSF"), "--start", "13M", "--points", "5"}), kExitOk);
  EXPECT_EQ(err.str(), "");
}

// A network file outside what the Design page accepts is brought into range
// with the page's messages by every command, which then works on it.
TEST_F(ArgumentsTest, FilesOutsideTheDesignRangeAreCorrectedByEveryCommand) {
  const std::string frequencyReset = "Frequency has been reset to the maximum allowed (10gHz).";
  const std::string systemZReset = "System impedance has been reset to the maximum allowed (10K).";
  for (const auto& [frequency, systemZ] : {std::pair{20e9, 1e300}, {1e300, 20e3}}) {
    network.Frequency = frequency;
    network.SystemZ = systemZ;
    Save();
    const std::string net = PathOf("net.SSF");
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"impedance", net}, {"sweep", net}, {"spice", net}, {"match", net}, {"band", net},
             {"optimize", net, "--free", "1"}, {"render", net, "--page", "design", "-o", PathOf("d.png")},
             {"print", net, "-o", PathOf("p.png")}}) {
      EXPECT_EQ(Run(words), kExitOk) << words[0] << " at " << frequency << " Hz: " << err.str();
      EXPECT_TRUE(Holds(err.str(), frequencyReset) && Holds(err.str(), systemZReset)) << words[0] << ": " << err.str();
      EXPECT_FALSE(Holds(out.str(), "inf") || Holds(out.str(), "nan")) << words[0] << ": " << out.str();
    }
  }
}

}  // namespace
}  // namespace kalvex
