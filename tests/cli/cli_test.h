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
  // One series element on a 50 + j0 load at 14 MHz, with valid circle and
  // sweep settings (13..15 MHz, 5 points).
  void SaveNetwork(int16_t type, double value, double q) {
    InitialiseSession(network);
    network.Frequency = 14e6;
    network.ElementType[1] = type;
    network.Value[1][1] = value;
    network.Value[1][2] = q;
    network.QCircle = 2;
    network.VSWRCircle = 2;
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
