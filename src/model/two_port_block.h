#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "model/elements.h"
#include "model/two_port.h"

namespace kalvex {

// A two-port block stage's file as the session holds it: the name it was
// read under (a path the program can open) and what it gave. The table is
// shared, never changed once read, so that the copies of the session every
// sweep, search and command makes cost nothing. No table: the stage is
// passed over.
struct TwoPortBlock {
  std::string file;
  std::shared_ptr<const TwoPortTable> table;

  bool operator==(const TwoPortBlock&) const = default;
};

// How the block sits in the line, Value(1): its port 1 towards the
// generator and port 2 towards the load; the two-port between its ports as
// one series part; or the one-port at port 1 (port 2 shorted or open) across
// the line.
enum class BlockPlacement { Cascade = 1, Series = 2, Shunt = 3 };

// Value(1) the placement (any other value is taken as a cascade), Value(2)
// 1 to exchange the ports, Value(3) 1 to short port 2 in the shunt placement
// (0 leaves it open). Value(6), never stored, is the share of the block held
// back, 0 for the whole block: the chart's path grows the block from a
// through connection by bringing it down from 1.
struct BlockSlots {
  BlockPlacement placement;
  bool swapped;
  bool port2Shorted;
  double heldBack;
};
inline constexpr int kHeldBackSlot = 6;
BlockSlots BlockOf(const std::array<double, 11>& slot);

// How the block sits, as the schematic and the parts list say it: "cascade",
// "series", "shunt, 2 open" or "shunt, 2 shorted".
std::string PlacementText(const BlockSlots& block);

// The chain matrix the block puts into the line at f, or nothing outside the
// frequencies its file covers.
std::optional<Abcd> BlockAbcd(const TwoPortTable& table, const BlockSlots& block, double f);

// The impedance seen through the block. Outside its file's frequencies there
// is no impedance to give: the result is not a number, which every sweep and
// drawing leaves out (the commands and windows name the range beforehand).
Impedance TwoPortStage(const TwoPortTable* table, const BlockSlots& block, double f, Impedance in);

}  // namespace kalvex
