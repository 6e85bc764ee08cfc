#include "model/numeric_prefix.h"

#include <cctype>
#include <charconv>
#include <string>
#include <system_error>

namespace kalvex {
namespace {

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

}  // namespace

NumericPrefix ReadNumericPrefix(std::string_view text) {
  std::size_t at = 0;
  bool negative = false;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
    negative = text[at] == '-';
    ++at;
  }
  const std::size_t mantissaStart = at;
  at = SkipDigits(text, at);
  bool anyDigit = at > mantissaStart;
  if (at < text.size() && text[at] == '.') {
    const std::size_t fractionStart = at + 1;
    at = SkipDigits(text, fractionStart);
    anyDigit = anyDigit || at > fractionStart;
  }
  if (!anyDigit) return {};
  std::string number(text.substr(mantissaStart, at - mantissaStart));

  bool negativeExponent = false;
  if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
    std::size_t exponentAt = at + 1;
    std::string sign;
    if (exponentAt < text.size() && (text[exponentAt] == '+' || text[exponentAt] == '-')) {
      negativeExponent = text[exponentAt] == '-';
      sign = text[exponentAt];
      ++exponentAt;
    }
    const std::size_t exponentEnd = SkipDigits(text, exponentAt);
    if (exponentEnd > exponentAt) {
      number += 'E' + sign + std::string(text.substr(exponentAt, exponentEnd - exponentAt));
    }
  }

  double magnitude = 0;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), magnitude);
  (void)end;
  if (error == std::errc::result_out_of_range) {
    // A huge exponent cannot be represented; a tiny one is simply zero.
    if (negativeExponent) return {};
    return {0, true};
  }
  return {negative ? -magnitude : magnitude, false};
}

}  // namespace kalvex
