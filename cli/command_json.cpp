#include "command_json.h"

#include "json_pieces.h"

namespace kalvex {
namespace {

Json PointJson(const BandPoint& point) {
  return {{"frequency", point.frequency}, {"vswr", point.vswr}, {"return_loss", point.returnLoss}};
}

Json FitJson(const BodeFanoFit& fit) {
  return {{"model", fit.capacitive ? "RC" : "RL"}, {"lossless", fit.lossless}, {"r", fit.r},
          {"reactive", fit.reactive},             {"gamma", fit.gamma},
          {"vswr", fit.vswr},                     {"return_loss", Optional(fit.returnLoss)}};
}

}  // namespace

std::string MatchJson(const Session& session, const MatchResult& result) {
  const MatchLoad load = LoadToMatch(session);
  Json solutions = Json::array();
  for (const MatchSolution& solution : result.solutions) {
    // What the network file gets: the values through the Design page's Accept.
    Session applied = session;
    ApplyMatch(applied, solution);
    Json stages = Json::array();
    for (std::size_t k = 0; k < solution.stages.size(); ++k) {
      const std::size_t stage = static_cast<std::size_t>(solution.firstStage) + k;
      stages.push_back({{"type", applied.ElementType[stage]}, {"values", StageValuesJson(applied.Value[stage], 5)}});
    }
    Json entry = {{"kind", MatchKindName(solution.kind)}, {"stages", stages}};
    if (solution.outOfRange) entry["adjusted"] = true;
    entry["loaded_q"] = solution.loadedQ;
    entry["response"] = MatchResponseName(solution.response);
    entry["dc"] = solution.passesDC ? "passes" : "blocks";
    entry["input"] = Json::array({solution.input.R, solution.input.X});
    entry["worst_vswr"] = solution.worstVSWR;
    solutions.push_back(entry);
  }
  return Line({{"frequency", load.frequency},
               {"load", Json::array({load.z.R, load.z.X})},
               {"antenna_load", Json::array({load.antenna.R, load.antenna.X})},
               {"kept_stages", load.keptStages},
               {"system_impedance", session.SystemZ},
               {"load_model", LoadModelName(result.loadModel)},
               {"band", {{"start", result.band.start}, {"stop", result.band.stop}, {"from_sweep", result.band.fromSweep}}},
               {"already_matched", result.alreadyMatched},
               {"solutions", solutions}});
}

std::string BandJson(const BandFigures& figures) {
  Json bandwidths = Json::array();
  for (const BandEdges& edges : figures.edges) {
    bandwidths.push_back({{"vswr", edges.vswr},
                          {"low", Optional(edges.low)},
                          {"high", Optional(edges.high)},
                          {"hertz", Optional(edges.hertz)},
                          {"percent", Optional(edges.percent)}});
  }
  Json cables = Json::array();
  for (const CableLoss& cable : figures.cableLosses) {
    cables.push_back({{"stage", cable.stage}, {"matched_loss_db", cable.matchedDb}});
  }
  return Line({{"load_model", LoadModelName(figures.loadModel)},
               {"worst", PointJson(figures.worst)},
               {"best", PointJson(figures.best)},
               {"bandwidths", bandwidths},
               {"bode_fano", {{"series", FitJson(figures.series)}, {"parallel", FitJson(figures.parallel)}}},
               {"bound_used", Optional(figures.boundUsed)},
               {"loss_db", Optional(figures.lossDb)},
               {"cable_loss_db", cables}});
}

std::string YieldJson(const YieldResult& result) {
  Json envelope = Json::array();
  for (const YieldEnvelopePoint& p : result.envelope) {
    envelope.push_back({{"frequency", p.frequency}, {"nominal", p.nominal}, {"vswr_5", p.low},
                        {"vswr_50", p.median}, {"vswr_95", p.high}, {"worst", p.worst}});
  }
  Json parts = Json::array();
  for (const PartSpread& s : result.parts) {
    parts.push_back({{"stage", s.part.stage}, {"part", PartLetter(s.part.kind)}, {"tolerance", s.tolerance},
                     {"low_vswr", s.lowVSWR}, {"high_vswr", s.highVSWR}});
  }
  return Line({{"yield", result.yield},
               {"yield_percent", 100 * result.yield},
               {"samples", result.samples},
               {"nominal_worst_vswr", result.nominalWorst},
               {"corners_worst_vswr", result.cornersWorst},
               {"envelope", envelope},
               {"parts", parts}});
}

}  // namespace kalvex
