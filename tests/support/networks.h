#pragma once

#include <array>
#include <cctype>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/session.h"
#include "support/five_stage_network.h"

// Networks and sweep results the tests share.
namespace kalvex::testing {

// One part of each of the thirteen types with plausible values, Value(s, 1..5).
struct Part {
  const char* name;
  int16_t type;
  std::array<double, 6> values;  // slot 0 unused
};

inline const std::vector<Part>& ThirteenParts() {
  static const std::vector<Part> parts = {
      {"series C", SeriesCapacitor, {0, 220e-12, 500}}, {"shunt C", ShuntCapacitor, {0, 220e-12, 500}},
      {"series L", SeriesInductor, {0, 2e-6, 150}}, {"shunt L", ShuntInductor, {0, 2e-6, 150}},
      {"line", SeriesLine, {0, 40, 5e6, 75}}, {"series shorted stub", SeriesShortedStub, {0, 40, 5e6, 75}},
      {"series open stub", SeriesOpenStub, {0, 40, 5e6, 75}},
      {"shunt shorted stub", ShuntShortedStub, {0, 40, 5e6, 75}},
      {"shunt open stub", ShuntOpenStub, {0, 40, 5e6, 75}},
      {"shunt series LC", ShuntSeriesLC, {0, 1e-6, 100, 300e-12, 800}},
      {"series parallel LC", SeriesParallelLC, {0, 1e-6, 100, 300e-12, 800}},
      {"series R", SeriesResistor, {0, 15}}, {"shunt R", ShuntResistor, {0, 15}}};
  return parts;
}

// A lossy cable (12 m of 75 ohm, VF 0.8, k1 1.39, k2 0.021) and a 4:1
// transformer with both winding inductances.
inline const std::vector<Part>& FeedParts() {
  static const std::vector<Part> parts = {{"cable", CoaxialCable, {0, 12, 75, 0.8, 1.39, 0.021}},
                                          {"transformer", Transformer, {0, 4, 20e-6, 0.1e-6}}};
  return parts;
}

// The part in stage 2 of a network at 10 MHz, after a series resistor of 20
// ohms on a 30 − j20 load and before a series inductor in stage 3.
inline Session NetworkAround(const Part& part) {
  return WithStages(SessionOnLoad(30, -20, 10e6),
                    {{SeriesResistor, {0, 20}}, {part.type, part.values}, {SeriesInductor, {0, 0.3e-6, 200}}});
}

// A readable name for a part's case: "series C" -> "series_C".
inline std::string PartName(const ::testing::TestParamInfo<Part>& info) {
  std::string name = info.param.name;
  for (char& c : name) {
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  }
  return name;
}

// Puts one point's results straight into the sweep arrays, as a sweep stores them.
inline void FillSweepPoint(Session& session, int k, double f, double r, double x, double rho,
                           double angle, double vswr) {
  session.SweepFreq[k] = f;
  session.SweepR[k] = r;
  session.SweepX[k] = x;
  session.SweepRho[k] = rho;
  session.SweepAngle[k] = angle;
  session.SweepVSWR[k] = vswr;
}

}  // namespace kalvex::testing
