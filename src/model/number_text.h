#pragma once

#include <string>

namespace kalvex {

// The significant digits a single-precision value keeps in its texts.
inline constexpr int kSingleDigits = 7;

// The shortest decimal text of `value` with at most `significantDigits`
// significant digits: no trailing zeros or point, "0" before the point below 1,
// exponent form ("1E-10", "1.5E+20") for very small and very large magnitudes.
// The decimal separator is always ".", whatever the locale.
std::string PlainNumberText(double value, int significantDigits);

// As PlainNumberText, but a value that is not negative gets a leading space and
// no "0" stands before the point: " .5", " 14", "-.25".
std::string PrintNumberText(double value, int significantDigits);

// The shortest text that reads back to the same double ("1.4e+07"), as
// machine-read outputs (Touchstone, JSON) carry numbers.
std::string ExactNumberText(double value);

// One number through a printf format ("%.4g"), for reports and plot labels.
std::string FormattedNumber(const char* format, double value);

// `value` rounded to `decimals` decimals, as a fixed-point text shows it, with
// a negative zero made zero: -0.04 shown to one decimal is "0.0", not "-0.0".
double ShownValue(double value, int decimals);

// A number in JSON: ExactNumberText, or null where it is not finite.
std::string JsonNumber(double value);

}  // namespace kalvex
