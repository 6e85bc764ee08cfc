#include <gtest/gtest.h>

#include <string>

#include "model/format.h"

namespace kalvex {
namespace {

struct FormatRow {
  double value;
  const char* si;
  const char* general;
  const char* smallSI;
};

class FormatTable : public ::testing::TestWithParam<FormatRow> {};

TEST_P(FormatTable, WritesEachFormatAsShown) {
  const FormatRow& row = GetParam();
  EXPECT_EQ(FormatSI(row.value), row.si);
  EXPECT_EQ(FormatGeneral(row.value), row.general);
  EXPECT_EQ(FormatSmallSI(row.value), row.smallSI);
}

INSTANTIATE_TEST_SUITE_P(
    Values, FormatTable,
    ::testing::Values(FormatRow{14'000'000, " 14 M", "14 M", "14 M"},
                      FormatRow{1'000'000, " 1 M", "1 M", "1 M"},
                      FormatRow{144'123'456, " 144.12 M", "144.123 M", "144.123 M"},
                      FormatRow{3.5, " 3.5 ", "3.5 ", "3.5 "},
                      FormatRow{0.25, " 250 m", "0.25 ", "250 m"},
                      FormatRow{-0.005, "-5 m", "-0.005 ", "-5 m"},
                      FormatRow{0, "0.0 ", "0 ", ""},
                      FormatRow{0.00005, " .05 m", "0 ", "50 u"},
                      FormatRow{999'999.9, " 1000 k", "1000 k", "1000 k"},
                      // Beyond the table: giga, negative magnitudes and the
                      // smallest steps of each format.
                      FormatRow{2.5e9, " 2.5 G", "2.5 G", "2.5 G"},
                      FormatRow{-1500, "-1500000 m", "-1.5 k", "-1.5 k"},
                      FormatRow{12.3456789, " 12.346 ", "12.346 ", "12.3457 "},
                      FormatRow{1.23456789, " 1.2346 ", "1.2346 ", "1.23457 "},
                      FormatRow{150, " 150 ", "150 ", "150 "},
                      FormatRow{2e-9, "0.0 ", "0 ", "2 n"},
                      FormatRow{3e-12, "0.0 ", "0 ", "3 p"},
                      FormatRow{1e-15, "0.0 ", "0 ", ""},
                      // Where the scaled number would need an exponent, the
                      // text is unscaled so that it reads back.
                      FormatRow{1e-8, " 1E-08 ", "0 ", "10 n"},
                      FormatRow{1e20, " 1E+20 ", "1E+20 ", "1E+20 "}));

TEST(FormatTexts, ReadBackToTheirValueAtTheEndsOfTheRange) {
  for (const double value : {1e-8, 3e-7, 1e15, 1e20, 2.5e30}) {
    for (const std::string& text : {FormatSI(value), FormatGeneral(value), FormatSmallSI(value)}) {
      if (text == "0.0 " || text == "0 ") continue;
      EXPECT_NEAR(ParseValueUnlimited(text), value, 1e-6 * value) << text;
    }
  }
}

struct UnitRow {
  double value;
  const char* text;
};

class CapacitanceTable : public ::testing::TestWithParam<UnitRow> {};
TEST_P(CapacitanceTable, WritesFaradsWithoutANanoStep) {
  EXPECT_EQ(FormatCapacitance(GetParam().value), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(Values, CapacitanceTable,
                         ::testing::Values(UnitRow{1e-10, "100 pF"}, UnitRow{4.7e-9, "4700 pF"},
                                           UnitRow{1e-8, "0.01 uF"}, UnitRow{2.2e-5, "22 uF"},
                                           UnitRow{1e-15, ""}, UnitRow{0, ""},
                                           UnitRow{-1e-10, "-100 pF"}, UnitRow{0.047, "47 mF"},
                                           UnitRow{2, "2 F"}, UnitRow{150, "0.15 KF"},
                                           UnitRow{3.3e-12, "3.3 pF"}));

class InductanceTable : public ::testing::TestWithParam<UnitRow> {};
TEST_P(InductanceTable, WritesHenries) {
  EXPECT_EQ(FormatInductance(GetParam().value), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(Values, InductanceTable,
                         ::testing::Values(UnitRow{1e-6, "1 uH"}, UnitRow{2.2e-9, "2.2 nH"},
                                           UnitRow{5e-10, "0.5 nH"}, UnitRow{1.5e-4, "150 uH"},
                                           UnitRow{1e-11, ""}, UnitRow{0.0033, "3.3 mH"},
                                           UnitRow{1.234567e-6, "1.23457 uH"},
                                           UnitRow{2500, "2.5 KH"}));

struct FileNumberRow {
  double value;
  const char* text;
};

class FileNumberTable : public ::testing::TestWithParam<FileNumberRow> {};
TEST_P(FileNumberTable, WritesPrintStyleWithATrailingSpace) {
  EXPECT_EQ(FileNumber(GetParam().value), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(
    Values, FileNumberTable,
    ::testing::Values(FileNumberRow{14'000'000, " 14000000 "}, FileNumberRow{1e-10, " 1E-10 "},
                      FileNumberRow{1e-6, " 1E-06 "}, FileNumberRow{1.5e20, " 1.5E+20 "},
                      FileNumberRow{0.5, " .5 "}, FileNumberRow{-0.5, "-.5 "},
                      FileNumberRow{-12.25, "-12.25 "}, FileNumberRow{0, " 0 "},
                      FileNumberRow{0.1, " .1 "}, FileNumberRow{123456789.123, " 123456789.123 "}));

// A single keeps all seven of its digits and shows no more (1.1f is
// 1.10000002 as a double).
TEST(FileNumber, KeepsSinglesToSevenDigits) {
  EXPECT_EQ(FileNumber(1.234567f), " 1.234567 ");
  EXPECT_EQ(FileNumber(12345.67f), " 12345.67 ");
  EXPECT_EQ(FileNumber(1.1f), " 1.1 ");
}

}  // namespace
}  // namespace kalvex
