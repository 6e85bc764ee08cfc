#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/cable_names.h"

namespace kalvex {

inline constexpr const char* kCableCatalogueFileName = "cables.txt";

// The cables of a catalogue text: one a line, "name; Z0; VF; k1; k2" and
// whatever follows (the published points the constants were fitted through).
// Lines beginning with "#" and empty lines are skipped; a line whose numbers
// are missing or out of a cable's range (Z0 and VF above 0, VF at most 1, k1
// and k2 not negative) is left out and named in `problems`, so that one bad
// line added by a user costs only that line.
CableCatalogue ParseCableCatalogue(std::string_view text);

// The shipped catalogue: beside the program when it runs from its build
// folder, else in the data folder it was installed with
// (bin/../share/kalvex/cables.txt). Empty when neither is there.
std::filesystem::path CableCataloguePath(const std::filesystem::path& programFolder);

// The catalogue shipped with the running program, found from where the
// program lies; an empty one where it is not there, a problem where it cannot
// be read.
CableCatalogue ReadShippedCatalogue();

}  // namespace kalvex
