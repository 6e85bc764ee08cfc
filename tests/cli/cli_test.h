#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli.h"
#include "files/network_file.h"
#include "support/fake_dialogs.h"
#include "support/temp_dir.h"
#include "support/networks.h"


namespace kalvex::testing {

// A network saved as "net.SSF" in the test's folder, and kalvex-cli run on
// words with its output and error streams kept.
class CliTest : public TempDirTest {
 protected:
  // One series element on a 50 + j0 load at 14 MHz, swept over 13..15 MHz
  // in 5 points.
  void SaveNetwork(int16_t type, double value, double q) {
    InitialiseSession(network);
    network.Frequency = 14e6;
    network.ElementType[1] = type;
    network.Value[1] = {0, value, q};
    network.SweepStart = 13e6;
    network.SweepStop = 15e6;
    network.SweepPoints = 5;
    FakeDialogs dialogs;
    WriteNetworkFile(network, dialogs, PathOf("net"));
  }

  int Run(const std::vector<std::string>& words) {
    out.str("");
    err.str("");
    return RunCli(words, out, err);
  }

  Session network;
  std::ostringstream out;
  std::ostringstream err;
};

}  // namespace kalvex::testing
