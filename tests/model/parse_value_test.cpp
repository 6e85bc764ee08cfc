#include <gtest/gtest.h>

#include <limits>

#include "model/format.h"

namespace kalvex {
namespace {

struct ParseRow {
  const char* text;
  double value;
};

class ParseValueTable : public ::testing::TestWithParam<ParseRow> {};

TEST_P(ParseValueTable, ReadsNumberAndMultiplier) {
  EXPECT_DOUBLE_EQ(ParseValue(GetParam().text), GetParam().value) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Documented, ParseValueTable,
    ::testing::Values(ParseRow{"100p", 1e-10}, ParseRow{"100 pF", 1e-10},
                      ParseRow{"4.7u", 4.7e-6}, ParseRow{"2.2nH", 2.2e-9},
                      ParseRow{"14.2M", 14'200'000}, ParseRow{"1 MHz", 1'000'000},
                      ParseRow{"1 mhz", 0.001}, ParseRow{"50 ohms", 0.05},
                      ParseRow{"1e3", 1000}, ParseRow{"1.5E-3", 0.0015}, ParseRow{"4k7", 4000},
                      ParseRow{"-12.5", -12.5}, ParseRow{"5-3", 53}, ParseRow{"1,5", 15},
                      ParseRow{"1.2.3", 1.23}, ParseRow{"abc", 0}, ParseRow{"", 0},
                      ParseRow{"99999999999", 1e10}, ParseRow{"123456789012345", 1e10}));

INSTANTIATE_TEST_SUITE_P(
    Further, ParseValueTable,
    ::testing::Values(ParseRow{"  47  ", 47},          // spaces trimmed
                      ParseRow{"1G", 1e9}, ParseRow{"10g", 1e10},
                      ParseRow{"2K", 2000}, ParseRow{"3N", 3e-9}, ParseRow{"5U", 5e-6},
                      ParseRow{"7P", 7e-12},
                      ParseRow{"-99999999999", -1e10},  // limited below too
                      ParseRow{"1e999", 1e10},          // cannot be represented
                      ParseRow{"1e-999", 0},            // underflows to nothing
                      ParseRow{".5", 0.5}, ParseRow{"+3", 3},
                      ParseRow{"1e3k", 1000},           // no multiplier after an exponent
                      ParseRow{"1e3e4", 1e10},          // a second "e" is skipped, not its digits
                      ParseRow{"1e-3.5", 1e-35},        // no point after the exponent
                      ParseRow{"2k.5", 2000},           // nor after a multiplier
                      ParseRow{"e5", 5},                // an exponent needs digits before it
                      ParseRow{"k", 0}, ParseRow{"-", 0}, ParseRow{"1E", 1},
                      ParseRow{"1.5e+2", 150},
                      ParseRow{"123456789012k", 1e10},  // the "k" is cut off at 12 characters
                      ParseRow{"1.00000000001", 1}));  // the last digit is cut off

TEST(ParseValueUnlimited, KeepsEntriesAboveTheLimit) {
  EXPECT_EQ(ParseValueUnlimited("20G"), 2e10);
  EXPECT_EQ(ParseValueUnlimited("-99999999999"), -99999999999.0);
  EXPECT_EQ(ParseValueUnlimited("1e999"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(ParseValueUnlimited("4k7"), 4000);
}

TEST(ParseValue, ReadsBackWhatTheFormatsWrite) {
  for (const double value : {1e-10, 4.7e-9, 2.2e-5, 0.047}) {
    EXPECT_NEAR(ParseValue(FormatCapacitance(value)), value, value * 1e-6);
  }
  for (const double value : {1e-6, 2.2e-9, 1.5e-4, 0.0033}) {
    EXPECT_NEAR(ParseValue(FormatInductance(value)), value, value * 1e-6);
  }
  for (const double value : {14'000'000.0, 144'120'000.0, 3.5, 0.25}) {
    EXPECT_NEAR(ParseValue(FormatSI(value)), value, value * 1e-6);
    EXPECT_NEAR(ParseValue(FormatSmallSI(value)), value, value * 1e-6);
    EXPECT_NEAR(ParseValue(FormatGeneral(value)), value, value * 1e-6);
  }
}

}  // namespace
}  // namespace kalvex
