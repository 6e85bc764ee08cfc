#include <string_view>

#include "cli.h"
#include "commands.h"

namespace kalvex {

CommandRun FindOptimiserCommand(const Command& command) {
  const std::string_view name = command.name;
  if (name == "optimize") return RunOptimizeCommand;
  if (name == "snap") return RunSnapCommand;
  return nullptr;
}

}  // namespace kalvex
