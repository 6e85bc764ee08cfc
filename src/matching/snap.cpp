#include "matching/snap.h"

#include <algorithm>
#include <thread>

#include "model/vector_state.h"

namespace kalvex {
namespace {

// How many times the search steps further out from the best combination.
constexpr int kFurtherRounds = 3;

struct Trial {
  std::vector<double> values;  // one per snapped part
  OptimiseResult tuned;
};

}  // namespace

ESeries& SeriesChoice::Of(PartKind kind) {
  switch (kind) {
    case PartKind::Inductor: return inductor;
    case PartKind::Resistor: return resistor;
    default: return capacitor;
  }
}

ESeries SeriesChoice::Of(PartKind kind) const { return const_cast<SeriesChoice*>(this)->Of(kind); }

// The free parts are re-tuned near values that are already good: a local
// search from them, without the optimiser's global stage.
const OptimiseEffort kRetune{0, 0, 1, 1};

SnapResult SnapToStandardValues(const Session& session, const SnapRequest& request,
                                const std::atomic<bool>* cancel) {
  SnapResult result;
  std::vector<std::vector<double>> choices;
  OptimiseRequest tune;
  tune.overBand = true;
  for (const NetworkPart& part : PartsOf(session)) {
    // A cable's length is the run to the antenna and a transformer's ratio
    // its windings: both stay as they are unless the request frees them.
    const bool feed = part.kind == PartKind::Cable || part.kind == PartKind::Transformer;
    if (feed && !request.retuneFeedParts) continue;
    const bool chosen = std::find(request.stages.begin(), request.stages.end(), part.stage) != request.stages.end();
    if (!chosen || !HasStandardValues(part.kind)) {
      if (tune.freeStages.empty() || tune.freeStages.back() != part.stage) tune.freeStages.push_back(part.stage);
      continue;
    }
    const double ideal = session.Value[part.stage][part.slot];
    const ESeries series = request.series.Of(part.kind);
    result.parts.push_back({part, ideal, StandardValueNear(ideal, series), series});
    const StandardNeighbours n = NeighboursOf(ideal, series);
    // The nearest first: trial 0 is plain rounding.
    const double other = result.parts.back().value == n.below ? n.above : n.below;
    choices.push_back({result.parts.back().value});
    if (other != choices.back().front()) choices.back().push_back(other);
  }

  std::vector<Trial> trials(1);
  for (const auto& values : choices) {
    std::vector<Trial> longer;
    for (const Trial& trial : trials) {
      for (const double v : values) {
        longer.push_back(trial);
        longer.back().values.push_back(v);
      }
    }
    trials = std::move(longer);
  }
  result.combinations = static_cast<int>(trials.size());

  const OptimiseProgress progress = [cancel](int, double) { return !(cancel && cancel->load()); };
  auto run = [&](std::vector<Trial>& batch) {
    std::atomic<std::size_t> next{0};
    auto work = [&] {
      ClearUpperVectorState();
      for (std::size_t k; (k = next++) < batch.size();) {
        Session trial = session;
        for (std::size_t p = 0; p < result.parts.size(); ++p) {
          trial.Value[result.parts[p].part.stage][result.parts[p].part.slot] = batch[k].values[p];
        }
        batch[k].tuned = Optimise(trial, tune, progress, kRetune);
        // With nothing to tune the optimiser's figure of the result is not the
        // network's: the combination stands as it is.
        if (tune.freeStages.empty()) batch[k].tuned.after = batch[k].tuned.before;
      }
    };
    const std::size_t threads = std::min<std::size_t>(std::max(1u, std::thread::hardware_concurrency()), batch.size());
    std::vector<std::jthread> pool;
    for (std::size_t t = 1; t < threads; ++t) pool.emplace_back(work);
    work();
  };
  auto bestOf = [](const std::vector<Trial>& batch) {
    return *std::min_element(batch.begin(), batch.end(),
                             [](const Trial& a, const Trial& b) { return a.tuned.after < b.tuned.after; });
  };
  run(trials);
  Trial chosen = bestOf(trials);

  // Further out, one series step at a time from the best, while that helps:
  // re-tuned free parts can favour a value beyond the nearest two.
  std::vector<std::vector<double>> tried;
  for (const Trial& trial : trials) tried.push_back(trial.values);
  for (int round = 0; round < kFurtherRounds; ++round) {
    std::vector<Trial> further;
    for (std::size_t p = 0; p < result.parts.size(); ++p) {
      for (const int step : {-1, 1}) {
        Trial trial{chosen.values, {}};
        trial.values[p] = StandardValueNear(chosen.values[p], result.parts[p].series, step);
        if (std::find(tried.begin(), tried.end(), trial.values) != tried.end()) continue;
        tried.push_back(trial.values);
        further.push_back(trial);
      }
    }
    if (further.empty()) break;
    run(further);
    result.combinations += static_cast<int>(further.size());
    const Trial better = bestOf(further);
    if (!(better.tuned.after < chosen.tuned.after)) break;
    chosen = better;
  }

  result.before = Optimise(session, {{}, false, true}).before;
  result.rounded = trials.front().tuned.before;
  result.cancelled = cancel && cancel->load();
  result.after = chosen.tuned.after;
  for (std::size_t p = 0; p < result.parts.size(); ++p) result.parts[p].value = chosen.values[p];

  // The snapped stages as they stand with their new values, then the re-tuned.
  for (const SnappedPart& snapped : result.parts) {
    if (!result.stages.empty() && result.stages.back().stage == snapped.part.stage) {
      result.stages.back().values[snapped.part.slot] = snapped.value;
      continue;
    }
    OptimisedStage stage{snapped.part.stage, session.ElementType[snapped.part.stage]};
    for (int j = 1; j <= kValueSlots; ++j) stage.values[j] = session.Value[snapped.part.stage][j];
    stage.values[snapped.part.slot] = snapped.value;
    result.stages.push_back(stage);
  }
  for (const OptimisedStage& tuned : chosen.tuned.stages) result.stages.push_back(tuned);
  return result;
}

bool IsSnapped(const SnapResult& result, int stage) {
  return std::any_of(result.parts.begin(), result.parts.end(),
                     [stage](const SnappedPart& p) { return p.part.stage == stage; });
}

void ApplySnapped(Session& session, const SnapResult& result) {
  OptimiseResult values;
  values.stages = result.stages;
  ApplyOptimised(session, values);
}

}  // namespace kalvex
