#include "model/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace kalvex {

std::string PlainNumberText(double value, int significantDigits) {
  if (value == 0) value = 0;  // turns -0 into 0
  char buffer[48];
  // The general form drops trailing zeros and switches to exponent form
  // outside 1E-5..1E+digits, as printf's %g does; to_chars never consults the
  // locale, so the point is always ".".
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value,
                                 std::chars_format::general, significantDigits)
                       .ptr;
  std::string text(buffer, end);
  for (char& c : text) {
    if (c == 'e') c = 'E';
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

std::string ExactNumberText(double value) {
  char buffer[32];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string FormattedNumber(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

double ShownValue(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  return std::round(value * scale) / scale + 0.0;
}

std::string JsonNumber(double value) { return std::isfinite(value) ? ExactNumberText(value) : "null"; }

}  // namespace kalvex
