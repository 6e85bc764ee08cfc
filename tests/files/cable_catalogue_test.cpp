#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "files/cable_catalogue.h"
#include "files/line_reader.h"
#include "files/text_file.h"

namespace kalvex {
namespace {

constexpr double kFeetPerHundredMetres = 328.0839895;

// Every shipped cable gives back the two published points its constants were
// fitted through (the last two fields of its line, MHz and dB per 100 ft).
TEST(CableCatalogue, ShippedCablesReproduceTheirPublishedPoints) {
  const auto text = ReadTextFile(KALVEX_CABLES_FILE);
  ASSERT_TRUE(text.has_value());
  const CableCatalogue catalogue = ParseCableCatalogue(*text);
  EXPECT_TRUE(catalogue.problems.empty());
  std::size_t next = 0;
  LineReader lines(*text);
  while (const auto line = lines.Next()) {
    if (line->empty() || line->front() == '#') continue;
    ASSERT_LT(next, catalogue.cables.size());
    const CatalogueCable& cable = catalogue.cables[next++];
    std::size_t fifth = 0;
    for (int k = 0; k < 5; ++k) fifth = line->find(';', fifth + 1);
    ASSERT_NE(fifth, std::string_view::npos) << *line;
    const std::string points(line->substr(fifth));
    double f1 = 0, a1 = 0, f2 = 0, a2 = 0;
    ASSERT_EQ(std::sscanf(points.c_str(), "; %lf %lf; %lf %lf", &f1, &a1, &f2, &a2), 4) << *line;
    for (const auto [f, perHundredFeet] : {std::pair(f1, a1), std::pair(f2, a2)}) {
      const double perHundredMetres = cable.k1 * std::sqrt(f) + cable.k2 * f;
      EXPECT_NEAR(perHundredMetres * 100 / kFeetPerHundredMetres, perHundredFeet, 0.002 * perHundredFeet)
          << cable.name << " at " << f << " MHz";
    }
  }
  EXPECT_EQ(next, catalogue.cables.size());
}

// A user's own lines: good ones are read, tabs and CR LF allowed; each bad one
// is left out and named by its line number.
TEST(CableCatalogue, BadLinesCostOnlyThemselves) {
  const CableCatalogue catalogue = ParseCableCatalogue(
      "# mine\r\n\tMy coax ;52; 0.7;1.2;0.01\r\nno numbers; a; b; c; d\r\ntoo few; 50; 0.66\r\n\r\n"
      "fast; 50; 1.2; 1; 0\r\ngain; 50; 0.66; -1; 0\r\n; 50; 0.66; 1; 0\r\ntrailing; 50; 0.66x; 1; 0\r\n");
  ASSERT_EQ(catalogue.cables.size(), 1u);
  const CatalogueCable& mine = catalogue.cables[0];
  EXPECT_EQ(std::tuple(mine.name, mine.characteristicZ, mine.velocityFactor, mine.k1, mine.k2),
            std::tuple("My coax", 52.0, 0.7, 1.2, 0.01));
  ASSERT_EQ(catalogue.problems.size(), 6u);
  EXPECT_TRUE(catalogue.problems.front().starts_with("line 3 ")) << catalogue.problems.front();
  EXPECT_TRUE(catalogue.problems.back().starts_with("line 9 ")) << catalogue.problems.back();
}

}  // namespace
}  // namespace kalvex
