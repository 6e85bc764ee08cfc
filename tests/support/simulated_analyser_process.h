#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace kalvex::testing {

// kalvex-sim-vna started with `arguments` for the length of a test: Port()
// is the pseudo-terminal it printed, and it is ended with the test.
class SimulatedAnalyserProcess {
 public:
  explicit SimulatedAnalyserProcess(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), KALVEX_SIM_VNA);
    int output[2];
    if (pipe(output) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      dup2(output[1], STDOUT_FILENO);
      // Its own notes ("gone, as --vanish-after asked") are not the test's.
      if (const int quiet = open("/dev/null", O_WRONLY); quiet >= 0) dup2(quiet, STDERR_FILENO);
      close(output[0]);
      close(output[1]);
      std::vector<char*> argv;
      for (std::string& argument : arguments) argv.push_back(argument.data());
      argv.push_back(nullptr);
      execv(KALVEX_SIM_VNA, argv.data());
      _exit(127);
    }
    close(output[1]);
    for (char c; read(output[0], &c, 1) == 1 && c != '\n';) port_ += c;
    close(output[0]);
  }
  SimulatedAnalyserProcess(const SimulatedAnalyserProcess&) = delete;
  SimulatedAnalyserProcess& operator=(const SimulatedAnalyserProcess&) = delete;
  ~SimulatedAnalyserProcess() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }

  const std::string& Port() const { return port_; }

 private:
  pid_t pid_ = -1;
  std::string port_;
};

}  // namespace kalvex::testing
