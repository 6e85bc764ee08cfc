#include <gtest/gtest.h>

#include <limits>

#include "model/format.h"

namespace kalvex {
namespace {

TEST(ParseValue, ReadsNumberAndMultiplier) {
  for (const auto& [text, value] : {
           std::pair{"100p", 1e-10}, {"100 pF", 1e-10}, {"2.2nH", 2.2e-9}, {"14.2M", 14'200'000},
           {"1 mhz", 0.001}, {"50 ohms", 0.05}, {"1.5E-3", 0.0015}, {"4k7", 4000},
           {"-12.5", -12.5}, {"5-3", 53}, {"1,5", 15}, {"1.2.3", 1.23}, {"abc", 0}, {"", 0},
           {"99999999999", 1e10}, {"-99999999999", -1e10}, {"  47  ", 47}, {"10g", 1e10},
           {"3N", 3e-9}, {"5U", 5e-6}, {"7P", 7e-12}, {"1e999", 1e10}, {"1e-999", 0},
           {".5", 0.5}, {"+3", 3},
           {"1e3k", 1000},    // no multiplier after an exponent
           {"1e3e4", 1e10},   // a second "e" is skipped, not its digits
           {"1e-3.5", 1e-35}, // no point after the exponent
           {"2k.5", 2000},    // nor after a multiplier
           {"e5", 5},         // an exponent needs digits before it
           {"-", 0}, {"1E", 1}, {"1.5e+2", 150},
           {"123456789012k", 1e10},   // the "k" is cut off at 12 characters
           {"1.00000000001", 1}}) {   // the last digit is cut off
    EXPECT_DOUBLE_EQ(ParseValue(text), value) << text;
  }
  EXPECT_EQ(ParseValueUnlimited("20G"), 2e10);
  EXPECT_EQ(ParseValueUnlimited("1e999"), std::numeric_limits<double>::infinity());
}

TEST(ParseValue, ReadsBackWhatTheFormatsWrite) {
  for (const double value : {1e-10, 4.7e-9, 2.2e-5, 0.047}) {
    EXPECT_NEAR(ParseValue(FormatCapacitance(value)), value, value * 1e-6);
    EXPECT_NEAR(ParseValue(FormatInductance(value * 1e3)), value * 1e3, value * 1e-3);
  }
  for (const double value : {14'000'000.0, 144'120'000.0, 3.5, 0.25}) {
    EXPECT_NEAR(ParseValue(FormatSI(value)), value, value * 1e-6);
    EXPECT_NEAR(ParseValue(FormatSmallSI(value)), value, value * 1e-6);
    EXPECT_NEAR(ParseValue(FormatGeneral(value)), value, value * 1e-6);
  }
}

}  // namespace
}  // namespace kalvex
