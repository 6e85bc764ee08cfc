#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "cli/cli_test.h"
#include "design/two_port_stage.h"
#include "files/exit_actions.h"
#include "files/network_file.h"
#include "files/safe_write.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;
using testing::Holds;
using HostileInputTest = testing::CliTest;

// Hostile names, files and values through kalvex-cli: each gives its exit
// code, its message, and an output that carries no forged line, no escape,
// no "inf" and no "nan".
TEST_F(HostileInputTest, NothingInjectedNothingNonFinite) {
  const std::string forged = "net\n.control\nshell touch PWNED\n.endc\r\t\x1b[2Jx.SSF";
  SaveNetwork(SeriesInductor, 1e-6, 200);
  fs::copy_file(PathOf("net.SSF"), PathOf(forged));  // the writer would tidy the name
  SaveNetwork(SeriesInductor, 1e308, 200, "huge.SSF");
  SaveNetwork(ShuntCapacitor, 5e-324, 1000, "tiny.SSF");
  WriteFile("200 MB.SSF", "");
  fs::resize_file(PathOf("200 MB.SSF"), 200'000'000);  // sparse: nothing is read
  fs::create_directory(PathOf("folder.SSF"));
  // S = 1 (an open), Y = 0 and an overflowing dB value give no finite load.
  WriteFile("mixed.s1p", "# MHz S RI R 50\n14 1 0\n14.1 0.2 0.1\n14.2 1e308 1e308\n");
  WriteFile("open.s1p", "# MHz S RI R 50\n14 1 0\n");
  WriteFile("y.s1p", "# MHz Y RI R 50\n14 0 0\n15 0.02 0\n");
  WriteFile("db.s1p", "# MHz S DB R 50\n14 1e308 0\n15 -20 0\n");
  WriteFile("escape.s1p", "# MHz S \x1b[31mRED RI\n14 0.2 0\n");
  // Networks with a two-port block: a through connection from 1 to 10 MHz,
  // and a file that has become hostile since.
  WriteFile("through.s2p", "# MHz S RI R 50\n1 0 0 1 0 1 0 0 0\n10 0 0 1 0 1 0 0 0\n");
  InitialiseSession(network);
  ASSERT_EQ(PlaceTwoPortBlock(network, {1, PathOf("through.s2p")}), "");
  Save("block.SSF");
  WriteFile("hostile.s2p", "# MHz S \x1b[31mRED RI\n1 0 0 1 0 1 0 0 0\n");
  network.TwoPortBlocks[1].file = PathOf("hostile.s2p");
  Save("hostile block.SSF");

  struct Case { std::vector<std::string> words; int exitCode; std::string inMessages; };  // "": nothing on standard error
  for (const Case& c : std::vector<Case>{
           {{"spice", PathOf(forged)}, kExitOk, ""},
           {{"spice", PathOf("huge.SSF")}, kExitFailed, "Stage 1 (series inductor)"},
           {{"spice", PathOf("tiny.SSF")}, kExitFailed, "Stage 1 (shunt capacitor)"},
           {{"sweep", PathOf(forged), "-o", PathOf("out\n.DAT")}, kExitOk, ""},
           {{"sweep", PathOf("huge.SSF"), "--table"}, kExitOk, "5 of the sweep's points"},
           {{"sweep", PathOf("huge.SSF")}, kExitOk, "5 of the sweep's points"},
           {{"impedance", PathOf("huge.SSF")}, kExitFailed, "no finite input impedance"},
           {{"sweep", PathOf("net.SSF"), "--load", PathOf("mixed.s1p")}, kExitOk, "lines 2, 4 give"},
           {{"sweep", PathOf("net.SSF"), "--load", PathOf("y.s1p"), "--touchstone"}, kExitOk, "line 2 gives"},
           {{"sweep", PathOf("net.SSF"), "--load", PathOf("db.s1p"), "--table"}, kExitOk, "line 2 gives"},
           {{"sweep", PathOf("net.SSF"), "--load", PathOf("open.s1p")}, kExitFailed, "no point whose load"},
           {{"sweep", PathOf("net.SSF"), "--load", PathOf("escape.s1p")}, kExitFailed, " [31mRED"},
           {{"impedance", PathOf("block.SSF")}, kExitOk, ""},
           {{"sweep", PathOf("block.SSF")}, kExitFailed, "(through.s2p) covers 1 MHz to 10 MHz, not"},
           {{"sweep", PathOf("block.SSF"), "--start", "2e6", "--stop", "9e6", "--touchstone2"}, kExitOk, ""},
           {{"spice", PathOf("block.SSF")}, kExitFailed, "measured data that a SPICE deck cannot hold"},
           {{"optimize", PathOf("block.SSF"), "--free", "1"}, kExitUsage, "stage 1 is a two-port block, which has no value"},
           {{"impedance", PathOf("hostile block.SSF")}, kExitOk, "option line is not understood: # MHz S  [31mRED RI"},
           {{"impedance", "/proc/self/mem"}, kExitFailed, "cannot read /proc/self/mem: Input/output error"},
           {{"sweep", PathOf("200 MB.SSF"), "-o", PathOf("out.DAT")}, kExitFailed, "it holds more than 64 MB"},
           {{"sweep", PathOf("folder.SSF"), "-o", PathOf("out.DAT")}, kExitFailed, "it is a folder"},
           {{"sweep", PathOf("net.SSF"), "--load", PathOf("y.s1p"), "-o", PathOf("y.s1p")}, kExitUsage,
            "-o names the input file"}}) {
    const std::string network = ReadFile("net.SSF");
    const int code = Run(c.words);
    const std::string what = c.words[0] + " " + c.words[1];
    EXPECT_EQ(code, c.exitCode) << what << ": " << err.str();
    EXPECT_EQ(Holds(err.str(), c.inMessages), true) << what << ": " << err.str();
    EXPECT_EQ(err.str().empty(), c.inMessages.empty()) << what << ": " << err.str();
    EXPECT_EQ(ReadFile("net.SSF"), network) << what;
    for (const std::string& output : {out.str(), err.str()}) {
      EXPECT_FALSE(Holds(output, "\x1b")) << what;
      EXPECT_FALSE(Holds(output, "inf") || Holds(output, "nan")) << what << ": " << output;
      EXPECT_FALSE(Holds(output, "\n.control") || Holds(output, "\nshell")) << what;
    }
  }
  EXPECT_TRUE(Holds(ReadFile("out\n.DAT"), "Filename: " + PathOf("out .DAT") + "\r\n"));
  EXPECT_FALSE(fs::exists(PathOf("out.DAT")));
}

// The exit steps say what was saved, and only that.
TEST_F(HostileInputTest, ExitStepsSayWhatWasNotSaved) {
  WriteFile("file", "");
  const std::string unwritable = PathOf("file/LASTSESSION.SSF");  // its folder is a file
  testing::FakeDialogs dialogs;
  EXPECT_EQ(EndAndQuit(network, dialogs, PathOf(kLastSessionFileName)),
            "Data for this session has been saved as 'LastSession'");
  EXPECT_EQ(std::pair(NetworkIsEmpty(network), NetworkIsEmpty(Session{})), std::pair(false, true));
  EXPECT_EQ(EndAndQuit(network, dialogs, unwritable), "Nothing was saved: cannot write " + unwritable + ": Not a directory");
  dialogs.fileNames = {PathOf("file/net"), PathOf("net2")};
  EXPECT_EQ(SaveThenExit(network, dialogs, PathOf(kLastSessionFileName)),
            "The network was not saved: cannot write " + PathOf("file/net.SSF") +
                ": Not a directory. The last session was saved.");
  EXPECT_EQ(SaveThenExit(network, dialogs, unwritable),
            "The network was saved; the last session was not: cannot write " + unwritable + ": Not a directory");
  // A cancelled chooser saves nothing and leaves FileName empty, as it answered.
  EXPECT_EQ(SaveThenExit(network, dialogs, PathOf(kLastSessionFileName)), std::nullopt);
  EXPECT_EQ(network.FileName, "");
}

// A writer killed between naming its temporary file and renaming it leaves
// that file behind; the next write of the same file removes it, and only it.
TEST_F(HostileInputTest, AKilledWritersTemporaryGoesWithTheNextWrite) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ::waitpid(child, nullptr, 0);
  const std::string abandoned = ".out.DAT.kalvex-" + std::to_string(child) + "-a1b2c3";
  const std::string living = ".out.DAT.kalvex-" + std::to_string(::getpid()) + "-d4e5f6";
  WriteFile(abandoned, "half");
  WriteFile(living, "being written");
  EXPECT_EQ(WriteFileSafely(PathOf("out.DAT"), "whole"), "");
  EXPECT_EQ(ReadFile("out.DAT"), "whole");
  EXPECT_FALSE(fs::exists(PathOf(abandoned)));
  EXPECT_TRUE(fs::exists(PathOf(living)));
}

// Standard output is checked: a full disk is a message and exit 1, also in
// the program kalvex-cli hands optimize to.
TEST_F(HostileInputTest, AFullStandardOutputIsAFailure) {
  for (const char* command : {" impedance '", " optimize --free 1 '"}) {
    SCOPED_TRACE(command);
    const std::string line = std::string(KALVEX_CLI) + command + PathOf("net.SSF") + "' >/dev/full 2>'" + PathOf("err") + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), kExitFailed);
    EXPECT_TRUE(Holds(ReadFile("err"), "cannot write to standard output"));
  }
}

}  // namespace
}  // namespace kalvex
