#include "model/network_abcd.h"

#include <cmath>
#include <filesystem>

#include "model/element_arithmetic.h"
#include "model/feed_parts.h"
#include "model/format.h"

namespace kalvex {
namespace {

using namespace arithmetic;
using Complex = std::complex<double>;

Complex Of(Impedance z) { return {z.R, z.X}; }

Abcd Series(Impedance z) { return SeriesAbcd(Of(z)); }
Abcd Shunt(Impedance z) { return ShuntAbcd(1.0 / Of(z)); }

Impedance StubAt(const LineSlots& stub, double f, double farEndR) {
  return StubImpedance(stub.characteristicZ, std::tan(LineAngle(stub).At(f)), farEndR);
}

Abcd LineAbcd(const LineSlots& line, double f) {
  if (line.characteristicZ == 0) return {};
  const double length = -LineAngle(line).At(f);
  const double z0 = line.characteristicZ;
  const Complex jSin(0, std::sin(length));
  return {std::cos(length), jSin * z0, jSin / z0, std::cos(length)};
}

std::optional<Abcd> StageAbcd(const Session& session, int stage, double f) {
  const auto& v = session.Value[stage];
  const LineSlots line{v[1], v[2], v[3]};
  const LCSlots lc{v[1], v[2], v[3], v[4]};
  switch (session.ElementType[stage]) {
    case SeriesCapacitor: return Series(CapacitorImpedance(v[1], v[2], f));
    case ShuntCapacitor: return Shunt(CapacitorImpedance(v[1], v[2], f));
    case SeriesInductor: return Series(InductorImpedance(v[1], v[2], f));
    case ShuntInductor: return Shunt(InductorImpedance(v[1], v[2], f));
    case SeriesLine: return LineAbcd(line, f);
    case SeriesShortedStub: return Series(StubAt(line, f, 0));
    case SeriesOpenStub: return Series(StubAt(line, f, kOpenEnd));
    case ShuntShortedStub: return Shunt(StubAt(line, f, 0));
    case ShuntOpenStub: return Shunt(StubAt(line, f, kOpenEnd));
    case ShuntSeriesLC: {
      const LCBranches branches = LCBranchImpedances(lc, f);
      return Shunt(arithmetic::Series(branches.inductor, branches.capacitor));
    }
    case SeriesParallelLC: {
      const LCBranches branches = LCBranchImpedances(lc, f);
      return Series(Parallel(branches.inductor, branches.capacitor));
    }
    case SeriesResistor: return Series({v[1], 0});
    case ShuntResistor: return Shunt({ShuntResistance(v[1]), 0});
    case CoaxialCable: return CableAbcd(CableOf(v), f);
    case Transformer: return TransformerAbcd(TransformerOf(v), f);
    case TwoPort: {
      const TwoPortTable* table = session.TwoPortBlocks[stage].table.get();
      if (table == nullptr) return Abcd{};
      return BlockAbcd(*table, BlockOf(v), f);
    }
    default: return Abcd{};
  }
}

}  // namespace

std::optional<Abcd> NetworkAbcd(const Session& session, double f) {
  Abcd network;
  for (int stage = kLastStage; stage >= 1; --stage) {
    const std::optional<Abcd> m = StageAbcd(session, stage, f);
    if (!m) return std::nullopt;
    network = Cascade(network, *m);
  }
  return network;
}

std::string BlockRangeProblem(const Session& session, double lowest, double highest) {
  for (int stage = 1; stage <= kLastStage; ++stage) {
    const TwoPortBlock& block = session.TwoPortBlocks[stage];
    if (session.ElementType[stage] != TwoPort || !block.table) continue;
    if (lowest >= block.table->Lowest() && highest <= block.table->Highest()) continue;
    const std::string asked = lowest == highest ? HertzText(lowest) : HertzText(lowest) + " to " + HertzText(highest);
    return "The two-port block in stage " + std::to_string(stage) + " (" +
           std::filesystem::path(block.file).filename().string() + ") covers " + CoveredRange(*block.table) +
           ", not " + asked + ".";
  }
  return "";
}

}  // namespace kalvex
