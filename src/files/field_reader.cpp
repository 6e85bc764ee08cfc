#include "files/field_reader.h"

#include <string>

namespace kalvex {

std::optional<std::string_view> FieldReader::NextLine() {
  if (rest_.empty()) return std::nullopt;
  const std::size_t newline = rest_.find('\n');
  std::string_view line = rest_.substr(0, newline);
  rest_ = newline == std::string_view::npos ? std::string_view{} : rest_.substr(newline + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

std::optional<std::string_view> FieldReader::Next() {
  while (const auto line = NextLine()) {
    if (line->empty() || line->front() == '*') continue;
    const std::size_t colon = line->find(':');
    return colon == std::string_view::npos ? *line : line->substr(colon + 1);
  }
  return std::nullopt;
}

NumericPrefix FieldNumber(std::string_view field) {
  std::string compact;
  for (const char c : field) {
    if (c != ' ' && c != '\t') compact += c;
  }
  return ReadNumericPrefix(compact);
}

}  // namespace kalvex
