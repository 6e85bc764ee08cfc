#include "matching/band_response.h"

#include <algorithm>
#include <cmath>

#include "model/batch_calculate.h"
#include "model/calculate.h"
#include "model/reflection.h"

namespace kalvex {

BandResponse::BandResponse(const Session& session) {
  Session reader = session;
  auto add = [&](int16_t point) {
    const Impedance load = NetworkLoad(reader, point);
    loadR_.push_back(load.R);
    loadX_.push_back(load.X);
    frequencies_.push_back(reader.Frequency);
  };
  if (reader.LoadSource == 2) {
    const int count = std::min<int>(reader.SweepPoints, kLoadPointCount - 1);
    if (count < 1) add(static_cast<int16_t>(reader.SweepPoints / 2 + 1));
    for (int k = 1; k <= count; ++k) add(static_cast<int16_t>(k));
    return;
  }
  reader.LoadSource = 1;
  const int count = std::min<int>(reader.SweepPoints, kSweepPointCount - 1);
  if (count < 1) add(0);
  for (int k = 0; k < count; ++k) {
    reader.Frequency = count > 1 ? reader.SweepStart + k * (reader.SweepStop - reader.SweepStart) / (count - 1)
                                 : reader.SweepStart;
    add(0);
  }
}

void BandResponse::VSWRs(const Session& network, std::span<double> vswr) const {
  std::vector<double> r = loadR_;
  std::vector<double> x = loadX_;
  NetworkBatch(network).Calculate(frequencies_, r, x);
  PlottedRho(r, x, network.SystemZ, vswr);
  // A point the calculation cannot carry (an overflowing value) is no match.
  for (double& v : vswr) v = VSWROf(std::isfinite(v) ? std::min(v, 1.0) : 1.0);
}

double BandResponse::WorstVSWR(const Session& network) const {
  std::vector<double> vswr(Size());
  VSWRs(network, vswr);
  return *std::max_element(vswr.begin(), vswr.end());
}

}  // namespace kalvex
