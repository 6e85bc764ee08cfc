#include "model/two_port_block.h"

#include <limits>

namespace kalvex {
namespace {

using Complex = std::complex<double>;

Complex PortOneImpedance(const SMatrix& m, double z0, bool port2Shorted) {
  const Complex end = port2Shorted ? -1.0 : 1.0;
  const Complex gamma = m.S11() + m.S12() * m.S21() * end / (1.0 - m.S22() * end);
  return z0 * (1.0 + gamma) / (1.0 - gamma);
}

// The series-through reading of a two-port: the part between its ports that
// lets S21 through, 2 z0 (1 - S21) / S21.
Complex SeriesImpedance(const SMatrix& m, double z0) { return 2 * z0 * (1.0 - m.S21()) / m.S21(); }

Abcd Blended(const Abcd& m, double heldBack) {
  const double whole = 1 - heldBack;
  return {whole * m.A + heldBack, whole * m.B, whole * m.C, whole * m.D + heldBack};
}

}  // namespace

BlockSlots BlockOf(const std::array<double, 11>& slot) {
  const auto placement = slot[1] == 2 ? BlockPlacement::Series
                         : slot[1] == 3 ? BlockPlacement::Shunt
                                        : BlockPlacement::Cascade;
  return {placement, slot[2] == 1, slot[3] == 1, slot[kHeldBackSlot]};
}

std::string PlacementText(const BlockSlots& block) {
  switch (block.placement) {
    case BlockPlacement::Series: return "series";
    case BlockPlacement::Shunt: return block.port2Shorted ? "shunt, 2 shorted" : "shunt, 2 open";
    case BlockPlacement::Cascade: break;
  }
  return "cascade";
}

std::optional<Abcd> BlockAbcd(const TwoPortTable& table, const BlockSlots& block, double f) {
  std::optional<SMatrix> s = table.At(f);
  if (!s) return std::nullopt;
  if (block.swapped) s = Swapped(*s);
  const double z0 = table.Reference();
  Abcd m;
  switch (block.placement) {
    case BlockPlacement::Cascade: m = AbcdOfS(*s, z0); break;
    case BlockPlacement::Series: m = SeriesAbcd(SeriesImpedance(*s, z0)); break;
    case BlockPlacement::Shunt: m = ShuntAbcd(1.0 / PortOneImpedance(*s, z0, block.port2Shorted)); break;
  }
  return block.heldBack == 0 ? m : Blended(m, block.heldBack);
}

Impedance TwoPortStage(const TwoPortTable* table, const BlockSlots& block, double f, Impedance in) {
  if (table == nullptr) return in;
  const std::optional<Abcd> m = BlockAbcd(*table, block, f);
  if (!m) return {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
  return SeenThrough(*m, in);
}

}  // namespace kalvex
