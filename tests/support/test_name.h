#pragma once

#include <cctype>
#include <string>

namespace kalvex::testing {

// A readable name for a parameterised case: "series C of 0" -> "series_C_of_0".
inline std::string TestName(std::string text) {
  for (char& c : text) {
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  }
  return text;
}

}  // namespace kalvex::testing
