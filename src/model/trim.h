#pragma once

#include <string>
#include <string_view>

namespace kalvex {

// `text` without the leading and trailing characters listed in `blanks`.
constexpr std::string_view Trim(std::string_view text, std::string_view blanks = " ") {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// The same, as a string of its own.
inline std::string Trimmed(std::string_view text, std::string_view blanks = " ") {
  return std::string(Trim(text, blanks));
}

}  // namespace kalvex
