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

// Some commands load a heavy library: render and print Qt, optimize and snap
// NLopt. Their code lives in libraries of its own, and each program says how
// it runs them: the desktop's drawing library runs all of them in this process
// (FindAnyCommand); kalvex-cli hands them to the program of their library, so
// that its other commands start without loading either.
using CommandFinder = CommandRun (*)(const Command& command);

// render and print here, optimize and snap through FindOptimiserCommand.
CommandRun FindAnyCommand(const Command& command);
// optimize and snap here; none for the others.
CommandRun FindOptimiserCommand(const Command& command);
// Hands the command to the program of its library, which replaces this
// process and answers for it (see Command::program).
int RunInItsProgram(const Command& command, const std::vector<std::string>& words,
                    std::ostream& out, std::ostream& err);

// Runs one kalvex-cli command; `args` excludes the program name. Control
// characters in what goes to `err` are made blanks; running out of memory or
// any other failure that escapes a command is a message and exit 1.
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           CommandFinder find = FindAnyCommand);

// A program's main: RunCli on its arguments with standard output and error,
// then standard output flushed and checked, so that a full disk or a closed
// pipe is a message and exit 1 rather than output silently lost.
int RunCliProgram(int argc, char** argv, CommandFinder find = FindAnyCommand);

}  // namespace kalvex
