#include "files/field_reader.h"

#include <string>

namespace kalvex {

std::optional<std::string_view> FieldReader::Next() {
  while (const auto line = lines_.Next()) {
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
