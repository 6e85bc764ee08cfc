#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kalvex {

inline constexpr const char* kCableCatalogueFileName = "cables.txt";

// One cable of the catalogue: what a cable stage needs besides its length,
// k1 and k2 in dB per 100 m as the stage keeps them.
struct CatalogueCable {
  std::string name;
  double characteristicZ = 0;
  double velocityFactor = 0;
  double k1 = 0;
  double k2 = 0;
};

// The cables of a catalogue text: one a line, "name; Z0; VF; k1; k2" and
// whatever follows (the published points the constants were fitted through).
// Lines beginning with "#" and empty lines are skipped; a line whose numbers
// are missing or out of a cable's range (Z0 and VF above 0, VF at most 1, k1
// and k2 not negative) is left out and named in `problems`, so that one bad
// line added by a user costs only that line.
struct CableCatalogue {
  std::vector<CatalogueCable> cables;
  std::vector<std::string> problems;
};
CableCatalogue ParseCableCatalogue(std::string_view text);

// The shipped catalogue: beside the program when it runs from its build
// folder, else in the data folder it was installed with
// (bin/../share/kalvex/cables.txt). Empty when neither is there.
std::filesystem::path CableCataloguePath(const std::filesystem::path& programFolder);

}  // namespace kalvex
