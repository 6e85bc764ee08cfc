#include "matching/snap_text.h"

#include <algorithm>
#include <array>

#include "design/schematic.h"
#include "model/number_text.h"

namespace kalvex {

std::string StageText(const OptimisedStage& stage) {
  std::array<double, kSlotCount> values{};
  std::copy(stage.values.begin(), stage.values.end(), values.begin());
  std::string text = "Stage " + std::to_string(stage.stage) + ": " + PartName(stage.type);
  for (const std::string& part : PartValueLines(stage.type, values)) text += ", " + part;
  return text;
}

std::string SnapReport(const SnapResult& result) {
  std::string text = "Worst VSWR " + FormattedNumber("%.6g", result.before) + " before, " +
                     FormattedNumber("%.6g", result.rounded) + " rounded, " +
                     FormattedNumber("%.6g", result.after) + " snapped (" + std::to_string(result.combinations) +
                     " combinations)\n";
  for (const OptimisedStage& s : result.stages) {
    text += StageText(s) + (IsSnapped(result, s.stage) ? " (standard)\n" : " (re-tuned)\n");
  }
  return text;
}

}  // namespace kalvex
