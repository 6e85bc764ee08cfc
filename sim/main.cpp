// kalvex-sim-vna: a pocket vector network analyser on a pseudo-terminal, for
// trying Kalvex's live load and kalvex-cli measure without the instrument.
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include <CLI/CLI.hpp>

#include "command_line.h"
#include "simulated_analyser.h"

namespace {

constexpr const char* kUsage =
    "usage: kalvex-sim-vna [--load FILE | --resistance OHM --resonance HZ --q Q] [--no-scan]\n"
    "                      [--most-per-scan N] [--scan-time MS] [--drop-every N] [--garble-every N]\n"
    "                      [--stall-after N] [--vanish-after N] [--link PATH]\n"
    "Opens a pseudo-terminal, prints its name and answers there as a pocket vector network\n"
    "analyser measuring an antenna (a series RLC circuit, by default 60 ohm resonant at\n"
    "14.15 MHz with Q 12) or the points of a load-data or one-port Touchstone file.\n"
    "--no-scan: firmware without scan (sweep, frequencies and data 0 instead).\n"
    "--scan-time: how long a sweep takes (default 100 ms). The faults count measurement\n"
    "lines: every Nth dropped or garbled, silence after N, or the device gone after N.\n"
    "--link: also a symbolic link PATH to the terminal, removed at the end.\n";

int Usage(const std::string& problem) {
  std::cerr << "kalvex-sim-vna: " << problem << "\n" << kUsage;
  return 2;
}

// The link's name, removed on every way out, a signal's too.
std::string linkPath;

void RemoveLink() {
  if (!linkPath.empty()) unlink(linkPath.c_str());
}

void EndOnSignal(int) {
  RemoveLink();
  _exit(0);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace kalvex;
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (!words.empty() && (words[0] == "--help" || words[0] == "-h")) {
    std::cout << kUsage;
    return 0;
  }
  struct Numbered {
    const char* name;
    double fallback, least;
    double value = 0;
  };
  Numbered numbers[] = {{"--resistance", 60, 0.001},   {"--resonance", 14.15e6, 1},  {"--q", 12, 0},
                        {"--most-per-scan", 101, 1},   {"--scan-time", 100, 0},      {"--drop-every", 0, 0},
                        {"--garble-every", 0, 0},      {"--stall-after", 0, 0},      {"--vanish-after", 0, 0}};
  // Numbers are read as kalvex-cli reads them, so "14.15M" works.
  CLI::App app("kalvex-sim-vna");
  std::vector<std::string> numberWords(std::size(numbers));
  for (std::size_t k = 0; k < std::size(numbers); ++k) app.add_option(numbers[k].name, numberWords[k]);
  std::string loadFile, linkName;
  bool noScan = false;
  app.add_option("--load", loadFile);
  app.add_option("--link", linkName);
  app.add_flag("--no-scan", noScan);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return Usage(error.what());
  }
  for (std::size_t k = 0; k < std::size(numbers); ++k) {
    Numbered& n = numbers[k];
    const auto value = numberWords[k].empty() ? std::optional<double>(n.fallback) : CliNumber(numberWords[k]);
    if (!value || *value < n.least) {
      return Usage(std::string(n.name) + " needs a number of at least " + std::to_string(n.least));
    }
    n.value = *value;
  }
  const auto [resistance, resonance, q, mostPerScan, scanTime, dropEvery, garbleEvery, stallAfter, vanishAfter] =
      numbers;

  SimulatedLoad load = SimulatedLoad::Antenna(resistance.value, resonance.value, q.value);
  if (!loadFile.empty()) {
    std::string messages;
    load = SimulatedLoad::FromFile(loadFile, messages);
    std::cerr << messages;
    if (load.Empty()) {
      std::cerr << "kalvex-sim-vna: " << loadFile << " gives no load point\n";
      return 1;
    }
  }
  SimulatedAnalyser analyser(std::move(load),
                             {static_cast<int>(dropEvery.value), static_cast<int>(garbleEvery.value),
                              static_cast<int>(stallAfter.value), static_cast<int>(vanishAfter.value)},
                             !noScan, static_cast<int>(mostPerScan.value));
  const auto sweepTime = std::chrono::milliseconds(static_cast<long>(scanTime.value));
  analyser.OnMeasuring([sweepTime] { std::this_thread::sleep_for(sweepTime); });

  const int master = posix_openpt(O_RDWR | O_NOCTTY);
  if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0 || ptsname(master) == nullptr) {
    std::cerr << "kalvex-sim-vna: cannot open a pseudo-terminal: " << std::strerror(errno) << "\n";
    return 1;
  }
  const std::string name = ptsname(master);
  // The terminal side stays open here too, raw, so that hosts may come and go
  // and none sees its own commands echoed by the terminal itself.
  const int terminal = open(name.c_str(), O_RDWR | O_NOCTTY);
  termios raw{};
  if (terminal < 0 || tcgetattr(terminal, &raw) != 0) {
    std::cerr << "kalvex-sim-vna: cannot open " << name << ": " << std::strerror(errno) << "\n";
    return 1;
  }
  cfmakeraw(&raw);
  tcsetattr(terminal, TCSANOW, &raw);
  if (!linkName.empty()) {
    std::error_code error;
    std::filesystem::remove(linkName, error);
    std::filesystem::create_symlink(name, linkName, error);
    if (error) {
      std::cerr << "kalvex-sim-vna: cannot link " << linkName << ": " << error.message() << "\n";
      return 1;
    }
    linkPath = linkName;
    std::atexit(RemoveLink);
    std::signal(SIGTERM, EndOnSignal);
    std::signal(SIGINT, EndOnSignal);
    std::signal(SIGHUP, EndOnSignal);
  }
  std::cout << name << std::endl;

  char buffer[4096];
  while (true) {
    const ssize_t count = read(master, buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    const std::string answer = analyser.Feed(std::string_view(buffer, static_cast<std::size_t>(count)));
    for (std::size_t done = 0; done < answer.size();) {
      const ssize_t written = write(master, answer.data() + done, answer.size() - done);
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return 1;
      done += static_cast<std::size_t>(written);
    }
    if (analyser.Vanished()) {
      std::cerr << "kalvex-sim-vna: gone, as --vanish-after asked\n";
      return 0;
    }
  }
  return 0;
}
