#include "cli.h"

namespace {

kalvex::CommandRun OptimiseHere(const kalvex::Command& command) {
  const kalvex::CommandRun run = kalvex::FindOptimiserCommand(command);
  return run != nullptr ? run : kalvex::RunInItsProgram;
}

}  // namespace

// kalvex-cli's commands that optimise, in a program of their own that loads NLopt.
int main(int argc, char** argv) { return kalvex::RunCliProgram(argc, argv, OptimiseHere); }
