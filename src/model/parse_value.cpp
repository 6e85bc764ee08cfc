#include <cctype>
#include <limits>
#include <string>

#include "model/format.h"
#include "model/numeric_prefix.h"
#include "model/trim.h"

namespace kalvex {
namespace {

constexpr std::size_t kMaxTextLength = 12;
constexpr std::size_t kMaxDigitStringLength = 16;
constexpr double kParseLimit = 1e10;

}  // namespace

double MultiplierOf(char letter) {
  switch (letter) {
    case 'p': case 'P': return 1e-12;
    case 'n': case 'N': return 1e-9;
    case 'u': case 'U': return 1e-6;
    case 'm': return 1e-3;
    case 'k': case 'K': return 1e3;
    case 'M': return 1e6;
    case 'g': case 'G': return 1e9;
    default: return 0;
  }
}

double ParseValue(std::string_view text) {
  const double value = ParseValueUnlimited(text);
  if (value > kParseLimit) return kParseLimit;
  if (value < -kParseLimit) return -kParseLimit;
  return value;
}

double ParseValueUnlimited(std::string_view text) {
  text = Trim(text).substr(0, kMaxTextLength);

  // Collect the characters that make up a number, skipping everything else.
  std::string kept;
  double multiplier = 1;
  bool pointSeen = false;
  bool exponentSeen = false;
  bool suffixSeen = false;
  for (const char c : text) {
    if (std::isdigit(static_cast<unsigned char>(c))) {
      if (kept.size() < kMaxDigitStringLength && !suffixSeen) kept += c;
    } else if (c == '.') {
      if (!pointSeen && !suffixSeen) {
        kept += c;
        pointSeen = true;
      }
    } else if (c == '-' || c == '+') {
      if (kept.empty() || kept.back() == 'E') kept += c;
    } else if (kept.empty()) {
      continue;
    } else if (c == 'e' || c == 'E') {
      if (!suffixSeen && !exponentSeen) {
        kept += 'E';
        exponentSeen = true;
        pointSeen = true;  // no decimal point may follow the exponent
      }
    } else if (!exponentSeen && !suffixSeen && MultiplierOf(c) != 0) {
      kept += c;
      suffixSeen = true;
      multiplier = MultiplierOf(c);
    }
  }

  const NumericPrefix number = ReadNumericPrefix(kept);
  // An exponent too large to represent reads as the largest value, whatever its sign.
  if (number.overflowed) return std::numeric_limits<double>::infinity();
  return number.value * multiplier;
}

}  // namespace kalvex
