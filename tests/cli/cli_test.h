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

inline bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// A network saved as "net.SSF" in the test's folder, and kalvex-cli run on
// words with its output and error streams kept.
class CliTest : public TempDirTest {
 protected:
  // Most commands are tried on a 100 pF series capacitor.
  void SetUp() override {
    TempDirTest::SetUp();
    SaveNetwork(SeriesCapacitor, 100e-12, 1000);
  }

  // One series element on a 50 + j0 load at 14 MHz, swept over 13..15 MHz
  // in 5 points, saved as `name`.
  void SaveNetwork(int16_t type, double value, double q, const std::string& name = "net.SSF") {
    InitialiseSession(network);
    network.Frequency = 14e6;
    network.ElementType[1] = type;
    network.Value[1] = {0, value, q};
    SweepOver(network, 13e6, 15e6, 5);
    Save(name);
  }

  // `network` as it stands, saved as `name`.
  void Save(const std::string& name = "net.SSF") {
    FakeDialogs dialogs;
    WriteNetworkFile(network, dialogs, PathOf(name));
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
