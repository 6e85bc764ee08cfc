#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kalvex {

// Number texts of the text boxes, labels and printouts. Each format scales the
// value by a metric multiplier, rounds it in single precision and appends the
// multiplier's suffix; ParseValue reads every suffix they write.

std::string FormatSI(double value);            // frequencies: " 14 M", " 250 m"
std::string HertzText(double frequency);       // FormatSI in a sentence: "14 MHz"
std::string FormatSmallSI(double value);       // system impedance: "50 u"
std::string FormatGeneral(double value);       // R, X, Q, lengths: "144.123 M"
std::string FormatCapacitance(double value);   // "4700 pF", "0.01 uF"
std::string FormatInductance(double value);    // "2.2 nH", "150 uH"

// Reads what a user typed or a data file holds: digits, one point, an exponent
// and one multiplier letter ("4.7u", "14.2M", "1e3"); anything else is skipped.
// Never fails: unreadable text gives 0, the result is kept within ±1E+10.
double ParseValue(std::string_view text);

// ParseValue without its ±1E+10 limit (too large an exponent gives infinity),
// for the entries whose own limits tell the user that an entry above 10 GHz
// was reset: "20G" reads as 2E+10 here.
double ParseValueUnlimited(std::string_view text);

// The multiplier of a suffix letter ParseValue reads, or 0 for a letter that is
// none. "m" is milli and "M" mega; the other letters read the same in either case.
double MultiplierOf(char letter);

// Number texts of the network file: N(x) for doubles (15 significant digits)
// and singles (7), I(n) for integers. All end with one space: " 14000000 ".
std::string FileNumber(double value);
std::string FileNumber(float value);
std::string FileInteger(int value);

// A number's text with "+" put in front unless it begins with "-", as the
// tables show reactances and angles.
inline std::string Signed(const std::string& text) {
  return text.starts_with('-') ? text : "+" + text;
}

}  // namespace kalvex
