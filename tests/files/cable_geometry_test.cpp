#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <string>

#include "files/cable_catalogue.h"
#include "files/text_file.h"

namespace kalvex {
namespace {

// An independent check of the shipped figures: the loss a cable of the
// published dimensions would have with smooth copper conductors (skin effect)
// and its insulation's loss tangent. No real cable beats the copper: k1 must
// be at least that, and not so far above that the dimensions or the fit are
// wrong; k2 must be at least the insulation's own loss.
constexpr double kMu0 = 4e-7 * std::numbers::pi;
constexpr double kCopper = 5.8e7;  // S/m
constexpr double kEta0 = 376.730313668;
constexpr double kC = 299'792'458;
constexpr double kDbPerNeper = 8.685889638065037;
constexpr double kMHz = 1e6;

double SurfaceResistance(double f) { return std::sqrt(std::numbers::pi * f * kMu0 / kCopper); }

// Per 100 m at 1 MHz, as k1 and k2 are given.
double PerHundredMetres(double nepersPerMetre) { return nepersPerMetre * kDbPerNeper * 100; }

struct Geometry {
  double k1;  // the copper's conductor loss
  double k2;  // the insulation's loss
  double z0;  // what the dimensions give, against the catalogue's
};

// Coax of inner diameter d and dielectric diameter D (metres):
// alpha_c = Rs (1/d + 1/D) / (eta ln(D/d)), alpha_d = pi f sqrt(er) tan(delta) / c.
Geometry Coax(double d, double D, double vf, double tanDelta) {
  const double eta = kEta0 * vf;  // eta0 / sqrt(er), er = 1 / vf^2
  const double logRatio = std::log(D / d);
  return {PerHundredMetres(SurfaceResistance(kMHz) * (1 / d + 1 / D) / (eta * logRatio)),
          PerHundredMetres(std::numbers::pi * kMHz * tanDelta / (kC * vf)), eta / (2 * std::numbers::pi) * logRatio};
}

// Two wires of diameter d at the spacing that gives z0 = eta / pi acosh(s/d),
// with the current crowding of their proximity.
Geometry TwinLine(double d, double z0, double vf, double tanDelta) {
  const double eta = kEta0 * vf;
  const double spacing = std::cosh(z0 * std::numbers::pi / eta);
  const double proximity = spacing / std::sqrt(spacing * spacing - 1);
  return {PerHundredMetres(SurfaceResistance(kMHz) / (std::numbers::pi * d * z0) * proximity),
          PerHundredMetres(std::numbers::pi * kMHz * tanDelta / (kC * vf)), z0};
}

// The commonly published dimensions: solid polyethylene tan(delta) 2e-4,
// foamed 1e-4; the window lines' webbing an effective 1e-4.
const std::map<std::string, Geometry> kReferences = {
    {"RG-58", Coax(0.81e-3, 2.95e-3, 0.66, 2e-4)},
    {"RG-8X", Coax(1.47e-3, 3.7e-3, 0.82, 1e-4)},
    {"RG-213", Coax(2.26e-3, 7.24e-3, 0.66, 2e-4)},
    {"RG-174", Coax(0.48e-3, 1.52e-3, 0.66, 2e-4)},
    {"RG-6", Coax(1.02e-3, 4.57e-3, 0.83, 1e-4)},
    {"LMR-240", Coax(1.42e-3, 3.81e-3, 0.84, 1e-4)},
    {"LMR-400", Coax(2.74e-3, 7.24e-3, 0.85, 1e-4)},
    {"LMR-600", Coax(4.47e-3, 11.56e-3, 0.87, 1e-4)},
    {"300 ohm window line", TwinLine(1.02e-3, 300, 0.9, 1e-4)},
    {"450 ohm window line", TwinLine(1.02e-3, 450, 0.91, 1e-4)},
};

TEST(CableCatalogue, NoCableLosesLessThanItsGeometryAllows) {
  const auto text = ReadTextFile(KALVEX_CABLES_FILE);
  ASSERT_TRUE(text.has_value());
  const CableCatalogue catalogue = ParseCableCatalogue(*text);
  ASSERT_EQ(catalogue.cables.size(), kReferences.size());
  for (const CatalogueCable& cable : catalogue.cables) {
    const auto reference = kReferences.find(cable.name);
    ASSERT_NE(reference, kReferences.end()) << cable.name;
    const Geometry& g = reference->second;
    // Stranded inner conductors run below their nominal impedance on paper.
    EXPECT_NEAR(g.z0, cable.characteristicZ, 0.1 * cable.characteristicZ) << cable.name;
    // Braids, strands and copper-clad steel lose more than smooth copper.
    EXPECT_GE(cable.k1, 0.999 * g.k1) << cable.name;
    EXPECT_LE(cable.k1, 1.7 * g.k1) << cable.name;
    EXPECT_GE(cable.k2, 0.999 * g.k2) << cable.name;
  }
}

}  // namespace
}  // namespace kalvex
