// Argument vectors for every kalvex-cli command, run in this process: the
// words are drawn from the commands' own option names and from hostile
// values. No crash, no hang, and a command that ends with exit 0 has printed
// no number that is not finite. render and print are read and prepared as
// they are for drawing; the drawing itself (Qt) is not part of this build.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

#include "cli.h"
#include "commands.h"
#include "drawing_requests.h"
#include "files/network_file.h"
#include "fuzz_input.h"

namespace {

constexpr const char* kCommands[] = {"impedance", "sweep", "spice", "match", "band", "optimize",
                                     "yield",     "snap",  "bom",   "render", "print"};

constexpr const char* kOptions[] = {
    "--freq",   "--start",      "--stop",   "--points", "--load",       "--table",
    "--touchstone", "-o",       "--kinds",  "--q",      "--sections",   "--ripple",
    "--json",   "--apply",      "--thresholds", "--free", "--free-z0",  "--page",
    "--plot",   "--grid",       "--zoom",   "--aspect", "--q-arcs",     "--vswr-circle",
    "--sweep",  "--size",       "--screen", "--help",   "--bogus",      "--",
    "--tolerance", "--distribution", "--samples", "--seed", "--vswr", "--stages", "--series"};

// NET, LOAD and OUT stand for the prepared files and an output in the folder.
constexpr const char* kValues[] = {
    "", "0", "-0", "1", "2", "3", "5", "-5", "2.5", "1e30", "-1e30", "1e-300", "1e308", "nan",
    "inf", "-inf", "14M", "-14M", "14.2M", "100p", "1e309", "abc", "L,PI", "MULTI", "l,xx", "1,2",
    "1,1", "1.5,2,3", "2,nan", "welcome", "design", "analysis", "band", "vswr", "rl", "gamma",
    "16x16", "320x200", "0x0", "NET", "NET", "LOAD", "OUT", "OUT.png", "-", "99999999999999999999",
    "0.001", "1000", "2000", "4", "C=5,L=5", "line=2", "C=E24,L=E12", "R=E192", "c=x", "normal",
    "uniform"};

std::string Folder() {
  static const std::string folder = [] {
    const std::string path = "/tmp/kalvex-arguments-fuzz-" + std::to_string(::getpid());
    std::filesystem::create_directories(path);
    kalvex::Session session;
    kalvex::InitialiseSession(session);
    session.Frequency = 14e6;
    session.SystemZ = 50;
    session.Value[0] = {0, 10, -30};
    session.ElementType[1] = kalvex::ShuntCapacitor;
    session.Value[1] = {0, 200e-12, 1000};
    session.ElementType[2] = kalvex::SeriesInductor;
    session.Value[2] = {0, 0.5e-6, 100};
    session.SweepStart = 13e6;
    session.SweepStop = 15e6;
    session.SweepPoints = 5;
    kalvex::fuzz::SilentDialogs dialogs;
    kalvex::WriteNetworkFile(session, dialogs, path + "/net");
    std::ofstream(path + "/load.RJX") << "13M,20,-10\r\n14M,25,0\r\n15M,0,40\r\n";
    // Any value may end up as -o's file name: it is written here.
    std::filesystem::current_path(path);
    return path;
  }();
  return folder;
}

std::string Word(uint8_t pick) {
  const std::string folder = Folder();
  const std::string value = kValues[pick % std::size(kValues)];
  if (value == "NET") return folder + "/net.SSF";
  if (value == "LOAD") return folder + "/load.RJX";
  if (value.starts_with("OUT")) return folder + "/out" + value.substr(3);
  return value;
}

// The drawing commands as far as this build goes: read and prepared.
int PrepareRenderOnly(const kalvex::Command& command, const std::vector<std::string>& words,
                      std::ostream& out, std::ostream& err) {
  kalvex::Session session;
  kalvex::RenderRequest request;
  kalvex::ConsoleDialogs dialogs(err);
  return kalvex::PrepareRender(command, words, out, err, dialogs, session, request).value_or(0);
}

int PreparePrintOnly(const kalvex::Command& command, const std::vector<std::string>& words,
                     std::ostream& out, std::ostream& err) {
  kalvex::Session session;
  kalvex::PrintRequest request;
  kalvex::ConsoleDialogs dialogs(err);
  return kalvex::PreparePrint(command, words, out, err, dialogs, session, request).value_or(0);
}

kalvex::CommandRun FindHere(const kalvex::Command& command) {
  const std::string_view name = command.name;
  if (name == "render") return PrepareRenderOnly;
  if (name == "print") return PreparePrintOnly;
  return kalvex::FindOptimiserCommand(command);
}

}  // namespace

// Each byte picks the next word: an option name (high bit set) or a value;
// the first picks the command, and FILE comes second unless the third byte's
// low bit says otherwise.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2 || size > 40) return 0;
  std::vector<std::string> words = {kCommands[data[0] % std::size(kCommands)]};
  if (size < 3 || (data[2] & 1) == 0) words.push_back(Folder() + "/net.SSF");
  // A yield run costs samples x points by design (10,000 x 2,000 takes well
  // over the fuzzer's time limit under the sanitizers): a small fixed count
  // keeps each input quick, and a second --samples is refused as given twice.
  if (words.front() == "yield") words.insert(words.begin() + 1, {"--samples", "64"});
  for (size_t k = 1; k < size; ++k) {
    words.push_back(data[k] & 0x80 ? kOptions[(data[k] & 0x7F) % std::size(kOptions)] : Word(data[k]));
  }
  std::ostringstream out;
  std::ostringstream err;
  const int code = kalvex::RunCli(words, out, err, FindHere);
  if (code == kalvex::kExitOk) kalvex::fuzz::RequireFiniteNumbers(out.str());
  if (code != kalvex::kExitOk && code != kalvex::kExitFailed && code != kalvex::kExitUsage) __builtin_trap();
  std::filesystem::remove(Folder() + "/out");
  std::filesystem::remove(Folder() + "/out.png");
  return 0;
}
