#include "model/network_loss.h"

#include <cmath>
#include <vector>

#include "model/calculate.h"
#include "model/feed_parts.h"

namespace kalvex {
namespace {

// How a stage passes power on: through a part in series (the same current),
// across a part in shunt (the same voltage), along a cable, or without loss.
enum class Path { Series, Shunt, Cable, Lossless };

Path PathOf(int16_t type) {
  switch (type) {
    case SeriesCapacitor: case SeriesInductor: case SeriesShortedStub: case SeriesOpenStub:
    case SeriesParallelLC: case SeriesResistor:
      return Path::Series;
    case ShuntCapacitor: case ShuntInductor: case ShuntShortedStub: case ShuntOpenStub:
    case ShuntSeriesLC: case ShuntResistor:
      return Path::Shunt;
    case CoaxialCable: return Path::Cable;
    default: return Path::Lossless;  // lines, transformers, empty stages
  }
}

double Conductance(Impedance z) { return z.R / (z.R * z.R + z.X * z.X); }

// P_in / P_out of one stage, from the impedances on its two sides: with the
// current shared, power goes as R; with the voltage shared, as G.
double PowerRatio(int16_t type, const std::array<double, kSlotCount>& slot, double f, Impedance out,
                  Impedance in) {
  switch (PathOf(type)) {
    case Path::Series: return in.R / out.R;
    case Path::Shunt: return Conductance(in) / Conductance(out);
    case Path::Cable: return CablePowerRatio(CableOf(slot), f, out);
    case Path::Lossless: break;
  }
  return 1;
}

}  // namespace

std::optional<double> NetworkLossDb(const Session& session, int16_t pointIndex) {
  Session working = session;
  if (!(working.Frequency > 0)) return std::nullopt;
  Impedance z = NetworkLoad(working, pointIndex);
  if (!(z.R > 0)) return std::nullopt;
  double ratio = 1;
  for (int stage = 1; stage <= kLastStage; ++stage) {
    const Impedance in = ThroughStages(working, z, stage, stage);
    ratio *= PowerRatio(working.ElementType[stage], working.Value[stage], working.Frequency, z, in);
    z = in;
  }
  const double db = 10 * std::log10(ratio);
  if (!std::isfinite(db)) return std::nullopt;
  return db;
}

std::vector<CableLoss> CableMatchedLosses(const Session& session, int16_t pointIndex) {
  Session working = session;
  NetworkLoad(working, pointIndex);
  std::vector<CableLoss> losses;
  for (int stage = 1; stage <= kLastStage; ++stage) {
    if (working.ElementType[stage] != CoaxialCable) continue;
    losses.push_back({stage, CableMatchedLossDb(CableOf(working.Value[stage]), working.Frequency)});
  }
  return losses;
}

}  // namespace kalvex
