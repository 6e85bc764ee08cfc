#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "cli.h"
#include "commands.h"

namespace {

// Hands a drawing command to kalvex-cli-draw beside this program, which
// replaces this process and answers for it. Where this program cannot tell
// where it lies, it refuses rather than run whatever the current folder holds
// under that name.
int RunInDrawingProgram(const kalvex::Command& command, const std::vector<std::string>& words,
                        std::ostream&, std::ostream& err) {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error || !self.is_absolute()) {
    err << "kalvex-cli " << command.name
        << ": cannot find kalvex-cli-draw: the location of kalvex-cli is unknown ("
        << (error ? error.message() : "/proc/self/exe is not a full path") << ")\n";
    return kalvex::kExitFailed;
  }
  const std::string program = (self.parent_path() / "kalvex-cli-draw").string();
  std::vector<std::string> arguments = {program, command.name};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  std::cout.flush();
  execv(program.c_str(), argv.data());
  err << "kalvex-cli " << command.name << ": cannot start " << program << ": "
      << std::strerror(errno) << "\n";
  return kalvex::kExitFailed;
}

}  // namespace

int main(int argc, char** argv) {
  return kalvex::RunCliProgram(argc, argv, {RunInDrawingProgram, RunInDrawingProgram});
}
