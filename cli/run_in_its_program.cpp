#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "cli.h"
#include "commands.h"

namespace kalvex {

// The command's program lies beside this one. Where this program cannot tell
// where it lies, it refuses rather than run whatever the current folder holds
// under that name.
int RunInItsProgram(const Command& command, const std::vector<std::string>& words, std::ostream&,
                    std::ostream& err) {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error || !self.is_absolute()) {
    err << "kalvex-cli " << command.name << ": cannot find " << command.program
        << ": the location of kalvex-cli is unknown ("
        << (error ? error.message() : "/proc/self/exe is not a full path") << ")\n";
    return kExitFailed;
  }
  const std::string program = (self.parent_path() / command.program).string();
  std::vector<std::string> arguments = {program, command.name};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  std::cout.flush();
  execv(program.c_str(), argv.data());
  err << "kalvex-cli " << command.name << ": cannot start " << program << ": "
      << std::strerror(errno) << "\n";
  return kExitFailed;
}

}  // namespace kalvex
