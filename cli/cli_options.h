#pragma once

#include <optional>
#include <ostream>
#include <string>

namespace kalvex {

// Writes a command's text to OUT (the one safe way) or, without -o, to `out`.
// Returns the exit code, with "kalvex-cli COMMAND: cannot write ..." on failure.
int WriteOutput(const std::string& command, const std::string& text,
                const std::optional<std::string>& output, std::ostream& out, std::ostream& err);

}  // namespace kalvex
