#include "matching/snap_text.h"

#include <algorithm>
#include <array>

#include "design/schematic.h"
#include "model/number_text.h"

namespace kalvex {

std::string SnapReport(const SnapResult& result) {
  std::string text = "Worst VSWR " + FormattedNumber("%.6g", result.before) + " before, " +
                     FormattedNumber("%.6g", result.rounded) + " rounded, " +
                     FormattedNumber("%.6g", result.after) + " snapped (" + std::to_string(result.combinations) +
                     " combinations)\n";
  for (const OptimisedStage& s : result.stages) {
    std::array<double, kSlotCount> values{};
    std::copy(s.values.begin(), s.values.end(), values.begin());
    text += "Stage " + std::to_string(s.stage) + ": " + PartName(s.type);
    for (const std::string& part : PartValueLines(s.type, values)) text += ", " + part;
    text += IsSnapped(result, s.stage) ? " (standard)\n" : " (re-tuned)\n";
  }
  return text;
}

}  // namespace kalvex
