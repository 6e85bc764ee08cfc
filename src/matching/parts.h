#pragma once

#include <optional>
#include <string>
#include <vector>

#include "matching/standard_values.h"
#include "model/session.h"

namespace kalvex {

// What a part of the network is, as it is bought and toleranced: a capacitor,
// an inductor, a resistor, a line or stub (whose length is what varies), a
// cable (its length) or a transformer (its ratio).
enum class PartKind { Capacitor, Inductor, Resistor, Line, Cable, Transformer };

// The kinds a tolerance or series list names. A cable is cut to length as a
// line is and shares its tolerance.
inline constexpr PartKind kAllPartKinds[] = {PartKind::Capacitor, PartKind::Inductor, PartKind::Resistor,
                                             PartKind::Line, PartKind::Transformer};

// One value of a stage that is a part: the LC stages hold two.
struct NetworkPart {
  int stage = 0;
  int slot = 1;
  PartKind kind = PartKind::Capacitor;
};

// The parts of stages 1..5, from the load towards the generator.
std::vector<NetworkPart> PartsOf(const Session& session);

// "C", "L", "R", "LINE" (lines and cables), "N" (a transformer's ratio): the
// letters of the command line and the parts list.
const char* PartLetter(PartKind kind);
std::optional<PartKind> PartKindNamed(const std::string& letter);

// Capacitors come in E24, inductors in E12, resistors in E96; lines, cables
// and transformers have no series.
std::optional<ESeries> DefaultSeries(PartKind kind);

// Whether a part is bought on a standard series (a capacitor, inductor or
// resistor), rather than cut or wound to its value.
bool HasStandardValues(PartKind kind);

// Per kind, in per cent: C 5, L 5, R 1, lines and cables ±2 % of their
// length. A transformer's ratio is its turns ratio squared: the turns are
// counted, so it is exact unless a tolerance is given.
struct Tolerances {
  double capacitor = 5;
  double inductor = 5;
  double resistor = 1;
  double line = 2;
  double ratio = 0;

  double& Of(PartKind kind);
  double Of(PartKind kind) const;
};

}  // namespace kalvex
