#include "model/number_text.h"

#include <cstdio>

namespace kalvex {

std::string PlainNumberText(double value, int significantDigits) {
  if (value == 0) value = 0;  // turns -0 into 0
  char buffer[48];
  // %g drops trailing zeros and switches to exponent form outside 1E-5..1E+digits;
  // snprintf in the C locale that a program starts with always writes ".".
  std::snprintf(buffer, sizeof buffer, "%.*g", significantDigits, value);
  std::string text = buffer;
  for (char& c : text) {
    if (c == 'e') c = 'E';
    if (c == ',') c = '.';
  }
  return text;
}

std::string PrintNumberText(double value, int significantDigits) {
  std::string text = PlainNumberText(value, significantDigits);
  const bool negative = text.front() == '-';
  const std::size_t digitsStart = negative ? 1 : 0;
  if (text.compare(digitsStart, 2, "0.") == 0) text.erase(digitsStart, 1);
  return negative ? text : " " + text;
}

}  // namespace kalvex
