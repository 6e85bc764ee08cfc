#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "cli.h"
#include "commands.h"

namespace {

// Hands a drawing command to kalvex-cli-draw beside this program, which
// replaces this process and answers for it.
int RunInDrawingProgram(const kalvex::Command& command, const std::vector<std::string>& words,
                        std::ostream&, std::ostream& err) {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
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
  return kalvex::RunCli({argv + 1, argv + argc}, std::cout, std::cerr,
                        {RunInDrawingProgram, RunInDrawingProgram});
}
