#include <string_view>

#include "cli.h"
#include "commands.h"

namespace kalvex {

CommandRun FindAnyCommand(const Command& command) {
  const std::string_view name = command.name;
  if (name == "render") return RunRenderCommand;
  if (name == "print") return RunPrintCommand;
  return FindOptimiserCommand(command);
}

}  // namespace kalvex
