#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kalvex {

// Exit codes of kalvex-cli.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;  // a file could not be read or written
inline constexpr int kExitUsage = 2;

// Runs one kalvex-cli command; `args` excludes the program name.
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace kalvex
