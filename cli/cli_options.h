#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace kalvex {

// A command's words after its name: positional arguments and "--name value"
// options. Unknown options, missing values and stray words are usage errors.
struct CliArguments {
  std::vector<std::string> positional;
  std::vector<std::pair<std::string, std::string>> options;

  std::optional<std::string> Option(const std::string& name) const;
};

// Splits `words` by the options a command takes (`valued` need a value,
// `flags` stand alone). Returns nothing on a usage error, with its reason;
// "-o" naming one of the input files (FILE or --load) is one.
std::optional<CliArguments> SplitArguments(const std::vector<std::string>& words,
                                           const std::vector<std::string>& valued,
                                           const std::vector<std::string>& flags,
                                           std::string& problem);

// Writes a command's text to OUT (the one safe way) or, without -o, to `out`.
// Returns the exit code, with "kalvex-cli COMMAND: cannot write ..." on failure.
int WriteOutput(const std::string& command, const std::string& text,
                const std::optional<std::string>& output, std::ostream& out, std::ostream& err);

// A number given on the command line: the whole word must be a finite number.
std::optional<double> CliNumber(const std::string& word);

}  // namespace kalvex
