#include "model/network_loss.h"

#include <cmath>
#include <complex>
#include <limits>
#include <vector>

#include "model/calculate.h"
#include "model/feed_parts.h"
#include "model/two_port_block.h"

namespace kalvex {
namespace {

// How a stage passes power on: through a part in series (the same current),
// across a part in shunt (the same voltage), along a cable, through a
// two-port block, or without loss.
enum class Path { Series, Shunt, Cable, Block, Lossless };

Path PathOf(int16_t type) {
  switch (type) {
    case SeriesCapacitor: case SeriesInductor: case SeriesShortedStub: case SeriesOpenStub:
    case SeriesParallelLC: case SeriesResistor:
      return Path::Series;
    case ShuntCapacitor: case ShuntInductor: case ShuntShortedStub: case ShuntOpenStub:
    case ShuntSeriesLC: case ShuntResistor:
      return Path::Shunt;
    case CoaxialCable: return Path::Cable;
    case TwoPort: return Path::Block;
    default: return Path::Lossless;  // lines, transformers, empty stages
  }
}

double Conductance(Impedance z) { return z.R / (z.R * z.R + z.X * z.X); }

// A block passes power as its chain matrix says: with I2 = 1 into the
// impedance behind it, P_out = R_out and P_in = Re(V1 conj(I1)). A block
// without its file is passed over, as the calculation passes it over.
double BlockPowerRatio(const TwoPortTable* table, const std::array<double, kSlotCount>& slot, double f,
                       Impedance out) {
  if (table == nullptr) return 1;
  const std::optional<Abcd> m = BlockAbcd(*table, BlockOf(slot), f);
  if (!m) return std::numeric_limits<double>::quiet_NaN();
  const std::complex<double> load(out.R, out.X);
  return std::real((m->A * load + m->B) * std::conj(m->C * load + m->D)) / out.R;
}

// P_in / P_out of one stage, from the impedances on its two sides: with the
// current shared, power goes as R; with the voltage shared, as G.
double PowerRatio(int16_t type, const std::array<double, kSlotCount>& slot, const TwoPortTable* block,
                  double f, Impedance out, Impedance in) {
  switch (PathOf(type)) {
    case Path::Series: return in.R / out.R;
    case Path::Shunt: return Conductance(in) / Conductance(out);
    case Path::Cable: return CablePowerRatio(CableOf(slot), f, out);
    case Path::Block: return BlockPowerRatio(block, slot, f, out);
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
    ratio *= PowerRatio(working.ElementType[stage], working.Value[stage],
                        working.TwoPortBlocks[stage].table.get(), working.Frequency, z, in);
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
