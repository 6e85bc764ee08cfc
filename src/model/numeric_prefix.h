#pragma once

#include <string_view>

namespace kalvex {

struct NumericPrefix {
  double value = 0;         // 0 when the text starts with no number
  bool overflowed = false;  // the exponent was too large for a double
};

// Reads the leading number of `text`: an optional sign, digits with at most one
// point, and an optional exponent ("E" or "e", optional sign, digits). Reading
// stops at the first other character. Independent of the locale.
NumericPrefix ReadNumericPrefix(std::string_view text);

}  // namespace kalvex
