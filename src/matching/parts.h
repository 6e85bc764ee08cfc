#pragma once

#include <optional>
#include <string>
#include <vector>

#include "matching/standard_values.h"
#include "model/session.h"

namespace kalvex {

// What a part of the network is, as it is bought and toleranced: a capacitor,
// an inductor, a resistor, or a line or stub (whose length is what varies).
enum class PartKind { Capacitor, Inductor, Resistor, Line };

inline constexpr PartKind kAllPartKinds[] = {PartKind::Capacitor, PartKind::Inductor, PartKind::Resistor,
                                             PartKind::Line};

// One value of a stage that is a part: the LC stages hold two.
struct NetworkPart {
  int stage = 0;
  int slot = 1;
  PartKind kind = PartKind::Capacitor;
};

// The parts of stages 1..5, from the load towards the generator.
std::vector<NetworkPart> PartsOf(const Session& session);

// "C", "L", "R", "LINE": the letters of the command line and the parts list.
const char* PartLetter(PartKind kind);
std::optional<PartKind> PartKindNamed(const std::string& letter);

// Capacitors come in E24, inductors in E12, resistors in E96; lines have no
// series.
std::optional<ESeries> DefaultSeries(PartKind kind);

// Per kind, in per cent: C 5, L 5, R 1, and lines ±2 % of their length.
struct Tolerances {
  double capacitor = 5;
  double inductor = 5;
  double resistor = 1;
  double line = 2;

  double& Of(PartKind kind);
  double Of(PartKind kind) const;
};

}  // namespace kalvex
