#include "matching/match_text.h"

#include <charconv>
#include <cstdio>

#include "design/schematic.h"
#include "model/format.h"
#include "model/number_text.h"
#include "model/trim.h"

namespace kalvex {
namespace {

// Number texts carry blanks of their own: one blank between words is enough here.
std::string OneBlank(std::string text) {
  std::string collapsed;
  for (const char c : text) {
    if (c != ' ' || (!collapsed.empty() && collapsed.back() != ' ')) collapsed += c;
  }
  while (!collapsed.empty() && collapsed.back() == ' ') collapsed.pop_back();
  return collapsed;
}

// The part value of a stage's `line`th value line in engineering form, for a
// value the display formats leave blank (below 0.01 pF or 0.1 nH).
std::string EngineeringValue(int16_t type, std::size_t line, const StageValues& values) {
  const bool capacitance = type == SeriesCapacitor || type == ShuntCapacitor ||
                           ((type == ShuntSeriesLC || type == SeriesParallelLC) && line == 2);
  return FormattedNumber("%.4g", values[line == 2 ? 3 : 1]) + (capacitance ? " F" : " H");
}

}  // namespace

std::string MatchPartsText(const MatchSolution& solution) {
  std::string text;
  for (const MatchStage& stage : solution.stages) {
    std::array<double, kSlotCount> values{};
    std::copy(stage.values.begin(), stage.values.end(), values.begin());
    text += (text.empty() ? "" : "; ") + std::string(PartName(stage.type));
    const std::vector<std::string> lines = PartValueLines(stage.type, values);
    for (std::size_t k = 0; k < lines.size(); ++k) {
      const std::string_view line = Trim(lines[k], " ");
      if (line.starts_with("Q:")) continue;
      text += " " + (line.empty() ? EngineeringValue(stage.type, k, stage.values) : std::string(line));
    }
  }
  return OneBlank(text) + (solution.outOfRange ? " (a value outside what the Design page accepts)" : "");
}

std::string MatchBandText(const MatchResult& result) {
  return OneBlank("worst VSWR over " + FormatSI(result.band.start) + "Hz to " + FormatSI(result.band.stop) + "Hz (" +
                  (result.band.fromSweep ? "the sweep" : "10 % either side of the working frequency") + "), load " +
                  LoadModelName(result.loadModel));
}

std::string MatchTable(const Session& session, const MatchResult& result) {
  const MatchLoad load = LoadToMatch(session);
  std::string through;
  if (load.keptStages > 0) {
    through = " seen through " + KeptStagesText(load.keptStages) + " (the antenna " +
              LoadValueText(load.antenna.R, load.antenna.X) + " ohms; the solutions go in from stage " +
              std::to_string(load.keptStages + 1) + ")";
  }
  std::string text = OneBlank("Load " + LoadValueText(load.z.R, load.z.X) + " ohms" + through + " at " +
                              FormatSI(load.frequency) + "Hz to " + FormatGeneral(session.SystemZ) +
                              " ohms") + "\n";
  if (result.alreadyMatched) return text + "The load is already matched.\n";
  text += MatchBandText(result) + "\n" +
          " #  kind          loaded Q  response   DC      worst VSWR  input (ohms)          parts from the load\n";
  for (std::size_t n = 0; n < result.solutions.size(); ++n) {
    const MatchSolution& s = result.solutions[n];
    char row[160];
    std::snprintf(row, sizeof row, "%2zu  %-12s  %-8s  %-9s  %-6s  %-10s  %-20s  ", n + 1,
                  MatchKindName(s.kind), FormattedNumber("%.4g", s.loadedQ).c_str(), MatchResponseName(s.response),
                  s.passesDC ? "passes" : "blocks", FormattedNumber("%.4g", s.worstVSWR).c_str(),
                  (FormattedNumber("%.6g", s.input.R) + FormattedNumber(" %+.4g", s.input.X)).c_str());
    text += row + MatchPartsText(s) + "\n";
  }
  return text;
}

}  // namespace kalvex
