#include <gtest/gtest.h>

#include <cmath>

#include "matching/standard_values.h"

namespace kalvex {
namespace {

TEST(StandardValues, TablesAreTheIecValues) {
  EXPECT_EQ(SeriesDecade(ESeries::E12), (std::vector<int>{10, 12, 15, 18, 22, 27, 33, 39, 47, 56, 68, 82}));
  EXPECT_EQ(SeriesDecade(ESeries::E24), (std::vector<int>{10, 11, 12, 13, 15, 16, 18, 20, 22, 24, 27, 30,
                                                           33, 36, 39, 43, 47, 51, 56, 62, 68, 75, 82, 91}));
  EXPECT_EQ(SeriesDecade(ESeries::E96),
            (std::vector<int>{100, 102, 105, 107, 110, 113, 115, 118, 121, 124, 127, 130, 133, 137, 140, 143,
                              147, 150, 154, 158, 162, 165, 169, 174, 178, 182, 187, 191, 196, 200, 205, 210,
                              215, 221, 226, 232, 237, 243, 249, 255, 261, 267, 274, 280, 287, 294, 301, 309,
                              316, 324, 332, 340, 348, 357, 365, 374, 383, 392, 402, 412, 422, 432, 442, 453,
                              464, 475, 487, 499, 511, 523, 536, 549, 562, 576, 590, 604, 619, 634, 649, 665,
                              681, 698, 715, 732, 750, 768, 787, 806, 825, 845, 866, 887, 909, 931, 953, 976}));
  EXPECT_EQ(SeriesDecade(ESeries::E3), (std::vector<int>{10, 22, 47}));
  EXPECT_EQ(SeriesDecade(ESeries::E6), (std::vector<int>{10, 15, 22, 33, 47, 68}));
  EXPECT_EQ(SeriesDecade(ESeries::E48).size(), 48u);
  const std::vector<int> e192 = SeriesDecade(ESeries::E192);
  ASSERT_EQ(e192.size(), 192u);
  EXPECT_EQ(std::vector<int>(e192.begin() + 183, e192.begin() + 188), (std::vector<int>{898, 909, 920, 931, 942}));
}

TEST(StandardValues, NeighboursAndNearestOverTheDecades) {
  struct Case { double value; ESeries series; double below, above, nearest; };
  const Case cases[] = {
      {4.7e-12, ESeries::E24, 4.7e-12, 4.7e-12, 4.7e-12},  // on the series: both neighbours are it
      {5e-12, ESeries::E24, 4.7e-12, 5.1e-12, 5.1e-12},
      {9.5e-9, ESeries::E12, 8.2e-9, 1e-8, 1e-8},          // across a decade
      {1.04e-7, ESeries::E12, 1e-7, 1.2e-7, 1e-7},
      {1234, ESeries::E96, 1210, 1240, 1240},
      {1e6, ESeries::E96, 1e6, 1e6, 1e6},
      {0.95, ESeries::E3, 0.47, 1.0, 1.0},
      {9.25, ESeries::E192, 9.2, 9.31, 9.2},
      {3.1e-3, ESeries::E24, 3.0e-3, 3.3e-3, 3.0e-3},
      {2.0 * 1e-13 * 9.999999999999, ESeries::E24, 2e-12, 2e-12, 2e-12},  // arithmetic noise
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.value);
    const StandardNeighbours n = NeighboursOf(c.value, c.series);
    EXPECT_EQ(n.below, c.below);
    EXPECT_EQ(n.above, c.above);
    EXPECT_EQ(StandardValueNear(c.value, c.series), c.nearest);
  }
  EXPECT_EQ(StandardValueNear(5e-12, ESeries::E24, -1), 4.7e-12);
  EXPECT_EQ(StandardValueNear(5e-12, ESeries::E24, 2), 6.2e-12);
  EXPECT_EQ(StandardValueNear(1.0e-6, ESeries::E12, -1), 8.2e-7);
}

TEST(StandardValues, SmallestSeriesHoldingAValue) {
  const std::pair<double, std::optional<ESeries>> cases[] = {
      {4.7e-9, ESeries::E3},   {3.3, ESeries::E6},      {2.7e-6, ESeries::E12},
      {3.0, ESeries::E24},     {1.05e3, ESeries::E48},  {1.02, ESeries::E96},
      {1.01e5, ESeries::E192}, {9.2, ESeries::E192},    {1.25, std::nullopt},
      {0, std::nullopt},       {-4.7, std::nullopt},
  };
  for (const auto& [value, series] : cases) EXPECT_EQ(SmallestSeriesHolding(value), series) << value;
  EXPECT_EQ(SeriesNamed("e96"), ESeries::E96);
  EXPECT_EQ(SeriesNamed("E25"), std::nullopt);
}

}  // namespace
}  // namespace kalvex
