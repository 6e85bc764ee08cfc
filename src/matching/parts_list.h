#pragma once

#include <string>

#include "matching/parts.h"
#include "model/session.h"

namespace kalvex {

// A value as an engineer writes it on a parts list: the prefix that keeps it
// between 1 and 1000 and at most four significant figures, "4.7 pF",
// "220 nH", "49.9 ohm", "1.5 kohm".
std::string EngineeringValue(double value, const std::string& unit);

// The network's parts as CSV, a header and a row a part from the load
// towards the generator: stage, part, value, the smallest standard series
// that holds the value (empty for none and for lines), tolerance. A line or
// stub is its length in degrees at its reference frequency, with its
// impedance; a cable the catalogue's name for its figures and its length
// ("RG-58 30 m") as the drawings name it from the session's catalogue, or its
// figures; a transformer its ratio ("49:1") and any winding inductance; a
// two-port block its file's name and placement ("balun.s2p cascade"), with
// neither series nor tolerance.
std::string PartsListCsv(const Session& session, const Tolerances& tolerances = {});

}  // namespace kalvex
