#include "cli.h"

namespace {

// kalvex-cli links only the commands that load neither Qt nor NLopt.
kalvex::CommandRun HandOn(const kalvex::Command&) { return kalvex::RunInItsProgram; }

}  // namespace

int main(int argc, char** argv) { return kalvex::RunCliProgram(argc, argv, HandOn); }
