#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kalvex {

// Exit codes of kalvex-cli.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;  // a file could not be read or written
inline constexpr int kExitUsage = 2;

struct Command;
using CommandRun = int (*)(const Command& self, const std::vector<std::string>& words,
                           std::ostream& out, std::ostream& err);

// The commands that draw (render, print) need Qt, which the others never
// load: each program says how it runs them. The desktop's drawing code runs
// them in this process (kDrawHere, in the drawing library); kalvex-cli hands
// them to kalvex-cli-draw, so that its other commands start at once.
struct DrawingCommands {
  CommandRun render;
  CommandRun print;
};
extern const DrawingCommands kDrawHere;

// Runs one kalvex-cli command; `args` excludes the program name. Control
// characters in what goes to `err` are made blanks; running out of memory or
// any other failure that escapes a command is a message and exit 1.
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           const DrawingCommands& drawing = kDrawHere);

// A program's main: RunCli on its arguments with standard output and error,
// then standard output flushed and checked, so that a full disk or a closed
// pipe is a message and exit 1 rather than output silently lost.
int RunCliProgram(int argc, char** argv, const DrawingCommands& drawing = kDrawHere);

}  // namespace kalvex
