#pragma once

#include <string>
#include <vector>

namespace kalvex {

struct CableSlots;  // model/feed_parts.h

// One cable of the catalogue: what a cable stage needs besides its length,
// k1 and k2 in dB per 100 m as the stage keeps them.
struct CatalogueCable {
  std::string name;
  double characteristicZ = 0;
  double velocityFactor = 0;
  double k1 = 0;
  double k2 = 0;
};

// The cables of a catalogue text, and a line for each line of it that is not
// a cable (files/cable_catalogue.h reads it).
struct CableCatalogue {
  std::vector<CatalogueCable> cables;
  std::vector<std::string> problems;
};

// The catalogue cable a cable stage is made of: the first whose impedance,
// velocity factor, k1 and k2 all read as the stage's own in the network file,
// so that a cable picked from the catalogue keeps its name through a save and
// a read. Nothing for a cable of the user's own numbers.
const CatalogueCable* CatalogueCableOf(const CableCatalogue& catalogue, const CableSlots& cable);

}  // namespace kalvex
