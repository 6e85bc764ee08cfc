#include "matching/band_response.h"

#include <algorithm>
#include <cmath>

#include "model/calculate.h"
#include "model/reflection.h"

namespace kalvex {

BandResponse::BandResponse(const Session& session) {
  Session reader = session;
  auto add = [&](int16_t point) {
    loads_.push_back(NetworkLoad(reader, point));
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

double BandResponse::VSWRAt(Session& trial, std::size_t k) const {
  trial.Frequency = frequencies_[k];
  const Impedance z = ThroughStages(trial, loads_[k], 1, kLastStage);
  const double rho = PlotImpedance(z.R, z.X, trial.SystemZ).rho;
  // A point the calculation cannot carry (an overflowing value) is no match.
  return std::isfinite(rho) ? VSWROf(std::min(rho, 1.0)) : VSWROf(1.0);
}

double BandResponse::WorstVSWR(Session& trial) const {
  double worst = 1;
  for (std::size_t k = 0; k < Size(); ++k) worst = std::max(worst, VSWRAt(trial, k));
  return worst;
}

}  // namespace kalvex
