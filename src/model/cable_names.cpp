#include "model/cable_names.h"

#include <algorithm>

#include "model/feed_parts.h"
#include "model/format.h"

namespace kalvex {
namespace {

bool SameInFile(double a, double b) { return FileNumber(a) == FileNumber(b); }

}  // namespace

const CatalogueCable* CatalogueCableOf(const CableCatalogue& catalogue, const CableSlots& cable) {
  const auto found = std::ranges::find_if(catalogue.cables, [&cable](const CatalogueCable& entry) {
    return SameInFile(entry.characteristicZ, cable.characteristicZ) &&
           SameInFile(entry.velocityFactor, cable.velocityFactor) && SameInFile(entry.k1, cable.k1) &&
           SameInFile(entry.k2, cable.k2);
  });
  return found == catalogue.cables.end() ? nullptr : &*found;
}

}  // namespace kalvex
