#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli.h"

namespace kalvex {

// Runs a command on its words after the command name; returns the exit code.
struct Command {
  const char* name;
  const char* usage;    // "impedance FILE [--freq HZ]"
  const char* summary;  // one line for --help
  CommandRun run;       // none where the code loads a heavy library (see cli.h)
  const char* program;  // then the program that links that library
};

int RunImpedanceCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                 std::ostream& err);
int RunSweepCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
             std::ostream& err);
int RunSpiceCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err);
int RunMatchCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err);
int RunBandCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err);
int RunOptimizeCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                       std::ostream& err);
int RunYieldCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err);
int RunSnapCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err);
int RunBomCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                  std::ostream& err);
int RunMeasureCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                      std::ostream& err);
int RunPrintCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
                    std::ostream& err);
int RunRenderCommand(const Command& self, const std::vector<std::string>& words, std::ostream& out,
              std::ostream& err);

// Prints "usage: kalvex-cli <usage>" and a reason to `err`; returns kExitUsage.
int UsageError(const Command& command, const std::string& problem, std::ostream& err);

}  // namespace kalvex
