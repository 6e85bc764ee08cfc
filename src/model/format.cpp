#include "model/format.h"

#include <cmath>
#include <span>

#include "model/number_text.h"

namespace kalvex {
namespace {

// Every format keeps its scaled value in single precision, as the texts show it.
constexpr int kDoubleDigits = 15;

struct Scale {
  double atLeast;
  double divisor;
  const char* suffix;
};

const Scale* PickScale(double compared, std::span<const Scale> table) {
  for (const Scale& scale : table) {
    if (compared >= scale.atLeast) return &scale;
  }
  return nullptr;
}

float RoundToDecimals(float x, int decimals) {
  const double factor = std::pow(10.0, decimals);
  return static_cast<float>(std::round(static_cast<double>(x) * factor) / factor);
}

// Decimals of the capacitance, inductance and small-SI formats, by |x|.
int SmallFormatDecimals(float x) {
  const float magnitude = std::fabs(x);
  if (magnitude > 1000) return 2;
  if (magnitude > 100) return 3;
  if (magnitude > 10) return 4;
  if (magnitude > 1) return 5;
  return 6;
}

// The scaled number with its multiplier; a number so large or small that its
// text takes an exponent is written unscaled, since the parser reads no
// multiplier after an exponent. One beyond single precision's range (a
// 1E+36 H inductor's reactance) is written from its double, not as "inf".
std::string WithMultiplier(std::string scaledText, double value, const char* suffix,
                           bool printStyle) {
  const float single = static_cast<float>(value);
  if (scaledText.find('E') == std::string::npos && std::isfinite(single)) return scaledText + suffix;
  const double unscaled = std::isfinite(single) ? single : value;
  return (printStyle ? PrintNumberText(unscaled, kSingleDigits)
                     : PlainNumberText(unscaled, kSingleDigits)) +
         " ";
}

std::string FormatByMagnitude(double value, std::span<const Scale> table) {
  const Scale* scale = PickScale(std::fabs(value), table);
  if (scale == nullptr) return "";
  const float x = static_cast<float>(value / scale->divisor);
  const float rounded = RoundToDecimals(x, SmallFormatDecimals(x));
  return WithMultiplier(PlainNumberText(rounded, kSingleDigits), value, scale->suffix, false);
}

constexpr Scale kSIScales[] = {
    {1e9, 1e9, " G"}, {1e6, 1e6, " M"}, {1e3, 1e3, " k"}, {1, 1, " "}};
constexpr Scale kSIBelowOne = {0, 0.001, " m"};

constexpr Scale kSmallSIScales[] = {
    {1e9, 1e9, " G"},     {1e6, 1e6, " M"},     {1e3, 1e3, " k"},
    {1, 1, " "},          {0.001, 0.001, " m"}, {1e-6, 1e-6, " u"},
    {1e-9, 1e-9, " n"},   {1e-14, 1e-12, " p"}};

constexpr Scale kCapacitanceScales[] = {
    {1e7, 1e9, " GF"},   {1e4, 1e6, " MF"},      {10, 1e3, " KF"},
    {1, 1, " F"},        {0.01, 0.001, " mF"},   {1e-8, 1e-6, " uF"},
    {1e-14, 1e-12, " pF"}};

constexpr Scale kInductanceScales[] = {
    {1e9, 1e9, " GH"},  {1e6, 1e6, " MH"},   {1e3, 1e3, " KH"},
    {1, 1, " H"},       {0.001, 0.001, " mH"}, {1e-6, 1e-6, " uH"},
    {1e-10, 1e-9, " nH"}};

struct GeneralScale {
  Scale scale;
  int decimals;
};

constexpr GeneralScale kGeneralScales[] = {
    {{1e9, 1e9, " G"}, 3}, {{1e6, 1e6, " M"}, 3}, {{1e3, 1e3, " k"}, 3},
    {{100, 1, " "}, 2},    {{10, 1, " "}, 3},     {{1, 1, " "}, 4}};
constexpr GeneralScale kGeneralBelowOne = {{0, 1, " "}, 5};
constexpr double kGeneralZeroBelow = 0.0001;

}  // namespace

std::string FormatSI(double value) {
  // Compares the signed value, so zero and every negative value show in milli.
  const Scale* picked = PickScale(value, kSIScales);
  const Scale& scale = picked != nullptr ? *picked : kSIBelowOne;
  const float x = static_cast<float>(value / scale.divisor);
  const int decimals = x > 100 ? 2 : x > 10 ? 3 : x > 1 ? 4 : 5;
  const float rounded = RoundToDecimals(x, decimals);
  // A value too small to show at five decimals reads as zero, not "0 m".
  if (rounded == 0) return "0.0 ";
  return WithMultiplier(PrintNumberText(rounded, kSingleDigits), value, scale.suffix, true);
}

std::string HertzText(double frequency) {
  std::string text = FormatSI(frequency);
  text.erase(0, text.find_first_not_of(' '));
  text.erase(text.find_last_not_of(' ') + 1);
  return text + "Hz";
}

std::string FormatGeneral(double value) {
  const double magnitude = std::fabs(value);
  const GeneralScale* picked = &kGeneralBelowOne;
  for (const GeneralScale& row : kGeneralScales) {
    if (magnitude >= row.scale.atLeast) {
      picked = &row;
      break;
    }
  }
  const float x = static_cast<float>(value / picked->scale.divisor);
  if (!(std::fabs(x) > kGeneralZeroBelow)) return "0 ";
  const float rounded = RoundToDecimals(x, picked->decimals);
  return WithMultiplier(PlainNumberText(rounded, kSingleDigits), value, picked->scale.suffix,
                        false);
}

std::string FormatSmallSI(double value) { return FormatByMagnitude(value, kSmallSIScales); }

std::string FormatCapacitance(double value) {
  return FormatByMagnitude(value, kCapacitanceScales);
}

std::string FormatInductance(double value) {
  return FormatByMagnitude(value, kInductanceScales);
}

std::string FileNumber(double value) { return PrintNumberText(value, kDoubleDigits) + " "; }

std::string FileNumber(float value) { return PrintNumberText(value, kSingleDigits) + " "; }

std::string FileInteger(int value) {
  std::string text = value < 0 ? "" : " ";
  text += std::to_string(value);
  text += ' ';
  return text;
}

}  // namespace kalvex
