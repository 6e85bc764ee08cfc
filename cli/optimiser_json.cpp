#include "optimiser_json.h"

#include "json_pieces.h"

namespace kalvex {

std::string OptimiseJson(const OptimiseResult& result) {
  Json stages = Json::array();
  for (const OptimisedStage& stage : result.stages) {
    stages.push_back({{"stage", stage.stage},
                      {"type", stage.type},
                      {"values", StageValuesJson(stage.values, kValueSlots)},
                      {"on_bound", stage.onBound},
                      {"negligible", stage.negligible}});
  }
  return Line({{"before", result.before},
               {"after", result.after},
               {"loss_db_before", Optional(result.lossBefore)},
               {"loss_db_after", Optional(result.lossAfter)},
               {"stages", stages},
               {"evaluations", result.evaluations},
               {"bounds", result.wideBounds ? "wide" : "practical"},
               {"load_model", LoadModelName(result.loadModel)}});
}

std::string SnapJson(const SnapResult& result) {
  Json parts = Json::array();
  for (const SnappedPart& p : result.parts) {
    parts.push_back({{"stage", p.part.stage}, {"part", PartLetter(p.part.kind)}, {"ideal", p.ideal},
                     {"value", p.value}, {"series", SeriesName(p.series)}});
  }
  Json stages = Json::array();
  for (const OptimisedStage& stage : result.stages) {
    stages.push_back({{"stage", stage.stage}, {"type", stage.type}, {"snapped", IsSnapped(result, stage.stage)},
                      {"values", StageValuesJson(stage.values, kValueSlots)}});
  }
  return Line({{"before", result.before},
               {"rounded", result.rounded},
               {"after", result.after},
               {"combinations", result.combinations},
               {"parts", parts},
               {"stages", stages}});
}

}  // namespace kalvex
