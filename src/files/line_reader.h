#pragma once

#include <optional>
#include <string_view>

namespace kalvex {

// Hands out the lines of a file's text one by one, without their CR LF (or
// LF) ends. The end is reached after the last line, also when that line ends
// with a line break.
class LineReader {
 public:
  explicit LineReader(std::string_view contents) : rest_(contents) {}

  std::optional<std::string_view> Next() {
    if (rest_.empty()) return std::nullopt;
    const std::size_t newline = rest_.find('\n');
    std::string_view line = rest_.substr(0, newline);
    rest_ = newline == std::string_view::npos ? std::string_view{} : rest_.substr(newline + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
  }

  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

}  // namespace kalvex
