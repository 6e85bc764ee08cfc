#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/session.h"
#include "platform/canvas.h"
#include "platform/pages.h"

namespace kalvex {


// x of the left edge of each stage cell of the schematic, StageX(1..6); index
// 6 is the right edge of stage 5. The Design page's hit tests read them.
using StagePositions = std::array<int16_t, 7>;

// Draws the network as the Design page shows it: the load with its label, the
// five stages between separators with their values, and the generator. A stage
// whose values cannot be used (a capacitance, Q, length, reference frequency,
// line impedance or resistance of 0 or less) is made empty: its type becomes 0
// and it is drawn as a plain wire.
StagePositions DrawNetwork(Session& session, Canvas& canvas, float coilArcRadius);

// The whole drawing of the Design page: the background, the schematic and
// the library.
StagePositions DrawDesignPage(Session& session, Canvas& canvas, float coilArcRadius);

// The value lines of a part as the schematic and the printed schematic show
// them: the value with its unit and, for capacitors and inductors, their Q; a
// cable's length with the name `cables` gives its numbers, or else the
// numbers themselves; a transformer's ratio and inductances; none for any
// other type.
std::vector<std::string> PartValueLines(int16_t type, const std::array<double, kSlotCount>& v,
                                        const CableCatalogue& cables = {});

// The load's value text: "50 " for a resistance alone, else R, " +j" or
// " -j", and |X| run together ("50  -j25 "). A reactive label starts 600
// units plus 60 a character of the two value texts left of the cell's end.
// The name of a block stage's file as its box shows it, without folders.
std::string BlockNameOf(const Session& session, int stage);

std::string LoadValueText(double r, double x);
double ReactiveLoadLabelLeft(double cellEnd, const std::string& text);

// The parts library below the schematic: every symbol once, in two rows
// separated by light-blue lines.
void DrawLibrary(Canvas& canvas, float coilArcRadius);

}  // namespace kalvex
