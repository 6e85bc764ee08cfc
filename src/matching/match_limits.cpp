#include "matching/match_limits.h"

#include <algorithm>

#include "design/schematic.h"
#include "model/trim.h"

namespace kalvex {
namespace {

// A stage's value lines as the schematic prints them, one a value.
std::vector<std::string> ValueLines(int16_t type, const StageValues& stageValues) {
  std::array<double, kSlotCount> values{};
  std::copy(stageValues.begin(), stageValues.end(), values.begin());
  return PartValueLines(type, values);
}

}  // namespace

std::vector<std::string> MatchLimitChanges(const Session& session, const MatchSolution& solution) {
  std::vector<std::string> changes;
  for (std::size_t k = 0; k < solution.stages.size(); ++k) {
    const MatchStage& stage = solution.stages[k];
    const std::vector<std::string> computed = ValueLines(stage.type, stage.values);
    const std::vector<std::string> accepted =
        ValueLines(stage.type, AcceptedValues(session, stage.type, stage.values));
    for (std::size_t line = 0; line < std::min(computed.size(), accepted.size()); ++line) {
      if (computed[line] == accepted[line] || computed[line].starts_with("Q:")) continue;
      changes.push_back("stage " + std::to_string(solution.firstStage + static_cast<int>(k)) + ", " + PartName(stage.type) + ": " +
                        Trimmed(computed[line]) + " would become " +
                        Trimmed(accepted[line]));
    }
  }
  return changes;
}

}  // namespace kalvex
