#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <string>

#include "files/cable_catalogue.h"
#include "files/text_file.h"

namespace kalvex {
namespace {

using std::numbers::pi;

// The shipped figures against an independent reference: the loss of a cable
// of the published dimensions with smooth copper conductors (skin effect at
// 1 MHz), which no real cable beats, and its insulation's own loss.
struct Geometry { double k1, k2, z0; };  // dB per 100 m at 1 MHz; ohms

constexpr double kPerHundredMetres = 100 * 8.685889638065037;  // from Np/m
const double kRs = std::sqrt(pi * 1e6 * 4e-7 * pi / 5.8e7);   // copper at 1 MHz
constexpr double kEta0 = 376.730313668;

double Dielectric(double vf, double tanDelta) { return kPerHundredMetres * pi * 1e6 * tanDelta / (299'792'458 * vf); }

// Inner diameter d, dielectric diameter D: alpha_c = Rs (1/d + 1/D) / (eta ln(D/d)).
Geometry Coax(double d, double D, double vf, double tanDelta) {
  const double eta = kEta0 * vf;
  return {kPerHundredMetres * kRs * (1 / d + 1 / D) / (eta * std::log(D / d)), Dielectric(vf, tanDelta),
          eta / (2 * pi) * std::log(D / d)};
}

// Two wires of diameter d spaced for z0 = eta / pi acosh(s/d), with their proximity.
Geometry TwinLine(double d, double z0, double vf, double tanDelta) {
  const double s = std::cosh(z0 * pi / (kEta0 * vf));
  return {kPerHundredMetres * kRs / (pi * d * z0) * s / std::sqrt(s * s - 1), Dielectric(vf, tanDelta), z0};
}

// Commonly published dimensions (m); tan delta: solid polyethylene 2e-4,
// foamed 1e-4, the window lines' webbing an effective 1e-4.
const std::map<std::string, Geometry> kReferences = {
    {"RG-58", Coax(0.81e-3, 2.95e-3, 0.66, 2e-4)},      {"RG-8X", Coax(1.47e-3, 3.7e-3, 0.82, 1e-4)},
    {"RG-213", Coax(2.26e-3, 7.24e-3, 0.66, 2e-4)},     {"RG-174", Coax(0.48e-3, 1.52e-3, 0.66, 2e-4)},
    {"RG-6", Coax(1.02e-3, 4.57e-3, 0.83, 1e-4)},       {"LMR-240", Coax(1.42e-3, 3.81e-3, 0.84, 1e-4)},
    {"LMR-400", Coax(2.74e-3, 7.24e-3, 0.85, 1e-4)},    {"LMR-600", Coax(4.47e-3, 11.56e-3, 0.87, 1e-4)},
    {"300 ohm window line", TwinLine(1.02e-3, 300, 0.9, 1e-4)},
    {"450 ohm window line", TwinLine(1.02e-3, 450, 0.91, 1e-4)},
};

TEST(CableCatalogue, NoCableLosesLessThanItsGeometryAllows) {
  const auto text = ReadTextFile(KALVEX_CABLES_FILE);
  ASSERT_TRUE(text.has_value());
  const CableCatalogue catalogue = ParseCableCatalogue(*text);
  ASSERT_EQ(catalogue.cables.size(), kReferences.size());
  for (const CatalogueCable& cable : catalogue.cables) {
    ASSERT_TRUE(kReferences.contains(cable.name)) << cable.name;
    const Geometry& g = kReferences.at(cable.name);
    EXPECT_NEAR(g.z0, cable.characteristicZ, 0.1 * cable.characteristicZ) << cable.name;  // the dimensions
    // Braids, strands and copper-clad steel lose more than smooth copper, but not doubly.
    EXPECT_GE(cable.k1, 0.999 * g.k1) << cable.name;
    EXPECT_LE(cable.k1, 1.7 * g.k1) << cable.name;
    EXPECT_GE(cable.k2, 0.999 * g.k2) << cable.name;
  }
}

}  // namespace
}  // namespace kalvex
