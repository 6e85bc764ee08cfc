#include "cli_options.h"

#include "cli.h"
#include "files/safe_write.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>

namespace kalvex {

std::optional<std::string> CliArguments::Option(const std::string& name) const {
  for (const auto& [key, value] : options) {
    if (key == name) return value;
  }
  return std::nullopt;
}

std::optional<CliArguments> SplitArguments(const std::vector<std::string>& words,
                                           const std::vector<std::string>& valued,
                                           const std::vector<std::string>& flags,
                                           std::string& problem) {
  auto listed = [](const std::vector<std::string>& names, const std::string& word) {
    return std::find(names.begin(), names.end(), word) != names.end();
  };
  CliArguments arguments;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (listed(flags, word)) {
      arguments.options.emplace_back(word, "");
    } else if (listed(valued, word)) {
      if (i + 1 == words.size()) {
        problem = word + " needs a value";
        return std::nullopt;
      }
      arguments.options.emplace_back(word, words[++i]);
    } else if (word.size() > 1 && word.front() == '-') {
      problem = "unknown option " + word;
      return std::nullopt;
    } else {
      arguments.positional.push_back(word);
    }
  }
  if (const auto output = arguments.Option("-o")) {
    std::vector<std::string> inputs = arguments.positional;
    if (const auto load = arguments.Option("--load")) inputs.push_back(*load);
    for (const std::string& input : inputs) {
      std::error_code error;
      if (std::filesystem::equivalent(*output, input, error)) {
        problem = "-o names the input file " + input + ": the output would overwrite it";
        return std::nullopt;
      }
    }
  }
  return arguments;
}

std::optional<double> CliNumber(const std::string& word) {
  double value = 0;
  const char* end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

int WriteOutput(const std::string& command, const std::string& text,
                const std::optional<std::string>& output, std::ostream& out, std::ostream& err) {
  if (!output) {
    out << text;
    return kExitOk;
  }
  if (const std::string failure = WriteFileSafely(*output, text); !failure.empty()) {
    err << "kalvex-cli " << command << ": " << failure << "\n";
    return kExitFailed;
  }
  return kExitOk;
}

}  // namespace kalvex
