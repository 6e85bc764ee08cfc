#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "model/format.h"

namespace kalvex {
namespace {

TEST(Format, WritesEachFormatAsShown) {
  // A value, then its texts in the SI, general and small-SI formats. Where the
  // scaled number would need an exponent, the text is unscaled so that it reads back.
  for (const auto& [value, si, general, smallSI] : {
           std::tuple{14'000'000.0, " 14 M", "14 M", "14 M"}, {144'123'456, " 144.12 M", "144.123 M", "144.123 M"},
           {3.5, " 3.5 ", "3.5 ", "3.5 "}, {0.25, " 250 m", "0.25 ", "250 m"}, {-0.005, "-5 m", "-0.005 ", "-5 m"},
           {0, "0.0 ", "0 ", ""}, {0.00005, " .05 m", "0 ", "50 u"}, {999'999.9, " 1000 k", "1000 k", "1000 k"},
           {2.5e9, " 2.5 G", "2.5 G", "2.5 G"}, {-1500, "-1500000 m", "-1.5 k", "-1.5 k"},
           {12.3456789, " 12.346 ", "12.346 ", "12.3457 "}, {1.23456789, " 1.2346 ", "1.2346 ", "1.23457 "},
           {150, " 150 ", "150 ", "150 "}, {3e-12, "0.0 ", "0 ", "3 p"}, {1e-15, "0.0 ", "0 ", ""},
           {1e-8, " 1E-08 ", "0 ", "10 n"}, {1e20, " 1E+20 ", "1E+20 ", "1E+20 "}}) {
    EXPECT_EQ(std::tuple(FormatSI(value), FormatGeneral(value), FormatSmallSI(value)),
              std::tuple(si, general, smallSI)) << value;
  }
  for (const double value : {1e-8, 3e-7, 1e15, 2.5e30}) {
    for (const std::string& text : {FormatSI(value), FormatGeneral(value), FormatSmallSI(value)}) {
      if (text == "0.0 " || text == "0 ") continue;
      EXPECT_NEAR(ParseValueUnlimited(text), value, 1e-6 * value);
    }
  }
}

TEST(Format, WritesFaradsWithoutANanoStepAndHenries) {
  for (const auto& [value, text] :
       {std::pair{1e-10, "100 pF"}, {4.7e-9, "4700 pF"}, {1e-8, "0.01 uF"}, {2.2e-5, "22 uF"},
        {1e-15, ""}, {0, ""}, {-1e-10, "-100 pF"}, {0.047, "47 mF"}, {2, "2 F"},
        {150, "0.15 KF"}, {3.3e-12, "3.3 pF"}}) {
    EXPECT_EQ(FormatCapacitance(value), text);
  }
  for (const auto& [value, text] :
       {std::pair{1e-6, "1 uH"}, {2.2e-9, "2.2 nH"}, {5e-10, "0.5 nH"}, {1.5e-4, "150 uH"},
        {1e-11, ""}, {0.0033, "3.3 mH"}, {1.234567e-6, "1.23457 uH"}, {2500, "2.5 KH"}}) {
    EXPECT_EQ(FormatInductance(value), text);
  }
}

// Print style with a trailing space; a single keeps all seven of its digits
// and shows no more (1.1f is 1.10000002 as a double).
TEST(FileNumber, KeepsSinglesToSevenDigits) {
  for (const auto& [value, text] :
       {std::pair{14'000'000.0, " 14000000 "}, {1e-10, " 1E-10 "}, {1.5e20, " 1.5E+20 "},
        {-0.5, "-.5 "}, {0, " 0 "}, {0.1, " .1 "}, {123456789.123, " 123456789.123 "}}) {
    EXPECT_EQ(FileNumber(value), text);
  }
  for (const auto& [value, text] :
       {std::pair{1.234567f, " 1.234567 "}, {12345.67f, " 12345.67 "}, {1.1f, " 1.1 "}}) {
    EXPECT_EQ(FileNumber(value), text);
  }
}

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

}  // namespace
}  // namespace kalvex
