#include "matching/optimise.h"

#include <nlopt.hpp>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "matching/band_objective.h"
#include "matching/search_space.h"
#include "model/network_loss.h"
#include "model/reflection.h"
#include "model/vector_state.h"

namespace kalvex {
namespace {

using Vector = std::vector<double>;
using Indexes = std::vector<std::size_t>;

// The global stage runs on this many points of the band, spread evenly with
// both ends; the polish adds the points that need it.
constexpr std::size_t kCoarsePoints = 48;
constexpr std::size_t kScoutPoints = 24;

// How far a local minimax goes: a scout's short run only tells one basin from
// another; a full one converges.
struct LocalDepth {
  int iterations;
  double xtol;
};
constexpr LocalDepth kScout{120, 1e-7};
constexpr LocalDepth kFull{300, 1e-10};
constexpr int kExchangeRounds = 12;

double VSWROfSquared(double squared) { return VSWROf(std::min(std::sqrt(squared), 1.0)); }

// The n-th point of the Halton sequence in the unit cube of `dimensions`.
Vector Halton(int n, std::size_t dimensions) {
  static const int kPrimes[] = {2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47};
  Vector point;
  for (std::size_t d = 0; d < dimensions; ++d) {
    const int base = kPrimes[d % std::size(kPrimes)];
    double f = 1;
    double r = 0;
    for (int i = n; i > 0; i /= base) {
      f /= base;
      r += f * (i % base);
    }
    point.push_back(r);
  }
  return point;
}

// Every `step`-th point and the last: the coarse set.
Indexes Spread(std::size_t points, std::size_t wanted) {
  Indexes indexes;
  if (points <= wanted) {
    for (std::size_t k = 0; k < points; ++k) indexes.push_back(k);
    return indexes;
  }
  for (std::size_t k = 0; k < wanted; ++k) indexes.push_back(k * (points - 1) / (wanted - 1));
  return indexes;
}

// The search over the free values in search units: keeps the best network
// found over every point, reports progress and stops when asked.
class Search {
 public:
  Search(BandObjective& objective, std::vector<SearchVariable> variables, const OptimiseProgress& progress)
      : objective_(objective), variables_(std::move(variables)), progress_(progress) {
    for (const SearchVariable& v : variables_) {
      low_.push_back(v.SearchLow());
      high_.push_back(v.SearchHigh());
    }
  }

  std::size_t Size() const { return variables_.size(); }
  const Vector& Low() const { return low_; }
  const Vector& High() const { return high_; }
  int Evaluations() const { return evaluations_; }
  double Best() const { return best_; }
  const Vector& BestValues() const { return bestX_; }

  // A best to beat (the start as it stands); no values: the start itself.
  void Offer(double worst) { best_ = worst; }

  // Over some points; the best of these is remembered, so that a stop in the
  // middle of the global stage can still give it (Settle).
  double Worst(const Vector& x, const Indexes& points) {
    Set(x);
    const double worst = objective_.Worst(points);
    if (worst < bestPartial_) {
      bestPartial_ = worst;
      bestPartialX_ = x;
    }
    return Counted(worst);
  }

  // After a stop: the best network on some points, taken over every point.
  void Settle() {
    if (bestPartialX_.empty()) return;
    Set(bestPartialX_);
    const double worst = objective_.WorstOfAll();
    if (worst < best_) {
      best_ = worst;
      bestX_ = bestPartialX_;
    }
  }

  void Reflections(const Vector& x, const Indexes& points, Vector& squared) {
    Set(x);
    objective_.Reflections(points, squared);
    Counted(0);
  }

  // Over every point; the best so far is kept.
  double WorstOfAll(const Vector& x) {
    Set(x);
    const double worst = objective_.WorstOfAll();
    if (worst < best_) {
      best_ = worst;
      bestX_ = x;
    }
    Counted(0);
    return worst;
  }

 private:
  void Set(const Vector& x) {
    for (std::size_t k = 0; k < variables_.size(); ++k) {
      objective_.SetValue(variables_[k].stage, variables_[k].slot, variables_[k].FromSearch(x[k]));
    }
  }
  double Counted(double value) {
    ++evaluations_;
    if (progress_ && !progress_(evaluations_, VSWROfSquared(best_))) throw nlopt::forced_stop();
    return value;
  }

  BandObjective& objective_;
  std::vector<SearchVariable> variables_;
  const OptimiseProgress& progress_;
  Vector low_;
  Vector high_;
  int evaluations_ = 0;
  double best_ = 2;  // above any |Γ|²
  Vector bestX_;
  double bestPartial_ = 2;
  Vector bestPartialX_;
};

// The local minimax over `points` from x: minimise t subject to |Γk(x)|² <= t,
// smooth in (x, t), with SLSQP and central differences. x becomes the result;
// returns its worst |Γ|² over `points`.
double LocalMinimax(Search& search, Vector& x, const Indexes& points, LocalDepth depth = kFull) {
  const std::size_t n = search.Size();
  struct Context {
    Search& search;
    const Indexes& points;
    Vector squared;
    Vector ahead;
    Vector behind;
  } context{search, points, {}, {}, {}};

  nlopt::opt local(nlopt::LD_SLSQP, static_cast<unsigned>(n + 1));
  Vector low = search.Low();
  Vector high = search.High();
  low.push_back(0);
  high.push_back(1);
  local.set_lower_bounds(low);
  local.set_upper_bounds(high);
  local.set_min_objective(
      [](const Vector& y, Vector& gradient, void*) {
        if (!gradient.empty()) {
          std::fill(gradient.begin(), gradient.end(), 0.0);
          gradient.back() = 1;
        }
        return y.back();
      },
      nullptr);
  const Vector tolerances(points.size(), 1e-14);
  local.add_inequality_mconstraint(
      [](unsigned m, double* result, unsigned dimensions, const double* y, double* gradient, void* data) {
        auto& c = *static_cast<Context*>(data);
        const std::size_t n = dimensions - 1;
        Vector x(y, y + n);
        c.search.Reflections(x, c.points, c.squared);
        for (unsigned k = 0; k < m; ++k) result[k] = c.squared[k] - y[n];
        if (!gradient) return;
        for (std::size_t d = 0; d < n; ++d) {
          const double h = 1e-7 * (c.search.High()[d] - c.search.Low()[d]);
          const double up = std::min(x[d] + h, c.search.High()[d]);
          const double down = std::max(x[d] - h, c.search.Low()[d]);
          const double centre = x[d];
          x[d] = up;
          c.search.Reflections(x, c.points, c.ahead);
          x[d] = down;
          c.search.Reflections(x, c.points, c.behind);
          x[d] = centre;
          for (unsigned k = 0; k < m; ++k) gradient[k * dimensions + d] = (c.ahead[k] - c.behind[k]) / (up - down);
        }
        for (unsigned k = 0; k < m; ++k) gradient[k * dimensions + n] = -1;
      },
      &context, tolerances);
  // No tolerance on t: SLSQP's steps may leave the constraints with t still
  // while it works its way back, and a test on t alone would end it there.
  local.set_xtol_rel(depth.xtol);
  local.set_maxeval(depth.iterations);

  const double before = search.Worst(x, points);
  Vector y = x;
  y.push_back(std::min(before, 1.0));
  double t = y.back();
  try {
    local.optimize(y, t);
  } catch (const nlopt::roundoff_limited&) {
  } catch (const std::invalid_argument&) {
  } catch (const std::runtime_error&) {
  }
  // SLSQP may end a little outside its constraints or, failing, anywhere:
  // the points' own worst decides.
  y.pop_back();
  const double after = search.Worst(y, points);
  if (after < before) {
    x = y;
    return after;
  }
  return before;
}

// The local minimum over every point: the minimax on `points` from x, then
// the points whose |Γ| rises above that worst added (the local peaks of the
// whole band), until none does and a fresh start of SLSQP (its curvature
// estimate forgotten, which a part with hardly any effect can spoil) gains
// nothing more.
double Polish(Search& search, Vector& x, Indexes points, std::size_t allPoints) {
  Indexes all(allPoints);
  for (std::size_t k = 0; k < allPoints; ++k) all[k] = k;
  Vector squared;
  double worst = search.WorstOfAll(x);
  for (int round = 0; round < kExchangeRounds; ++round) {
    const double onPoints = LocalMinimax(search, x, points);
    search.Reflections(x, all, squared);
    const double previous = worst;
    worst = search.WorstOfAll(x);
    bool added = false;
    for (std::size_t k = 0; k < allPoints; ++k) {
      const bool peak = (k == 0 || squared[k] >= squared[k - 1]) && (k + 1 == allPoints || squared[k] >= squared[k + 1]);
      if (peak && squared[k] > onPoints * (1 + 1e-9) + 1e-15 &&
          std::find(points.begin(), points.end(), k) == points.end()) {
        points.push_back(k);
        added = true;
      }
    }
    if (!added && worst > previous * (1 - 1e-6)) break;
  }
  return worst;
}

// The Halton set's best points, no two within a tenth of the range in every
// value of each other, so that the local searches start in different basins.
std::vector<Vector> DistinctBest(std::vector<std::pair<double, Vector>> samples, const Search& search,
                                 std::size_t wanted) {
  std::stable_sort(samples.begin(), samples.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Vector> chosen;
  for (const auto& sample : samples) {
    if (chosen.size() == wanted) break;
    const Vector& x = sample.second;
    const bool near = std::any_of(chosen.begin(), chosen.end(), [&](const Vector& c) {
      for (std::size_t d = 0; d < x.size(); ++d) {
        if (std::fabs(c[d] - x[d]) > 0.1 * (search.High()[d] - search.Low()[d])) return false;
      }
      return true;
    });
    if (!near) chosen.push_back(x);
  }
  return chosen;
}

}  // namespace

OptimiseResult Optimise(const Session& session, const OptimiseRequest& request,
                        const OptimiseProgress& progress, const OptimiseEffort& effort) {
  ClearUpperVectorState();  // the search's own arithmetic, often in a worker thread
  OptimiseResult result;
  result.loadModel = request.loadModel;
  result.wideBounds = request.wideBounds;
  const std::vector<SearchVariable> variables =
      SearchVariables(session, request.freeStages, request.freeImpedances, request.wideBounds);
  BandObjective objective(session, request.overBand, request.loadModel);
  Search search(objective, variables, progress);
  const std::size_t n = variables.size();

  // The start as it stands (its values may lie outside the bounds): the result
  // is never worse than this.
  const double asIs = objective.WorstOfAll();
  result.before = VSWROfSquared(asIs);
  search.Offer(asIs);

  if (n > 0 && objective.Points() > 0) {
    Vector start(n);
    for (std::size_t k = 0; k < n; ++k) {
      start[k] = variables[k].ToSearch(session.Value[variables[k].stage][variables[k].slot]);
    }
    const Indexes scout = Spread(objective.Points(), kScoutPoints);
    const Indexes coarse = Spread(objective.Points(), kCoarsePoints);
    try {
      search.WorstOfAll(start);
      std::vector<std::pair<double, Vector>> samples;
      const int count = effort.samplesPerValue * static_cast<int>(n);
      for (int k = 1; k <= count; ++k) {
        Vector x = Halton(k, n);
        for (std::size_t d = 0; d < n; ++d) x[d] = search.Low()[d] + x[d] * (search.High()[d] - search.Low()[d]);
        samples.push_back({search.Worst(x, scout), x});
      }
      std::vector<Vector> starts = DistinctBest(std::move(samples), search, effort.localStarts);
      starts.insert(starts.begin(), start);

      std::vector<std::pair<double, Vector>> basins;
      for (Vector& x : starts) {
        const double worst = LocalMinimax(search, x, scout, kScout);
        basins.push_back({worst, x});
      }
      std::vector<std::pair<double, Vector>> minima;
      // Ranked by their worst over every point: between the 48 points a
      // minimum may hide a peak that the polish must first climb down from.
      for (Vector& x : DistinctBest(std::move(basins), search, effort.refined)) {
        LocalMinimax(search, x, coarse);
        minima.push_back({search.WorstOfAll(x), x});
      }
      for (const Vector& x : DistinctBest(std::move(minima), search, effort.polished)) {
        Vector polished = x;
        Polish(search, polished, coarse, objective.Points());
      }
    } catch (const nlopt::forced_stop&) {
      result.cancelled = true;
      search.Settle();
    }
  }

  result.evaluations = search.Evaluations();
  result.after = VSWROfSquared(search.Best());
  const Vector& best = search.BestValues();
  for (const int s : request.freeStages) {
    if (s < 1 || s > kLastStage) continue;
    OptimisedStage stage{s, session.ElementType[s]};
    for (int j = 1; j <= kValueSlots; ++j) stage.values[j] = session.Value[s][j];
    for (std::size_t k = 0; k < best.size(); ++k) {
      if (variables[k].stage != s) continue;
      const double value = variables[k].FromSearch(best[k]);
      stage.values[variables[k].slot] = value;
      stage.onBound = stage.onBound || OnBound(variables[k], value);
      stage.negligible = stage.negligible || NegligiblePart(session, stage.type, variables[k].slot, value);
    }
    result.stages.push_back(stage);
  }
  Session optimised = session;
  ApplyOptimised(optimised, result);
  result.lossBefore = NetworkLossDb(session, session.DataIndex);
  result.lossAfter = NetworkLossDb(optimised, optimised.DataIndex);
  return result;
}

std::string OptimisedPartsNote(const OptimiseResult& result) {
  std::string note;
  for (const OptimisedStage& stage : result.stages) {
    const std::string name = "Stage " + std::to_string(stage.stage) + " (" + PartName(stage.type) + ")";
    if (stage.onBound) note += name + " ended on a bound of its range.\n";
    if (stage.negligible) note += name + " has a negligible reactance: it could be left out.\n";
  }
  return note;
}

void ApplyOptimised(Session& session, const OptimiseResult& result) {
  for (const OptimisedStage& stage : result.stages) {
    for (int j = 1; j <= kValueSlots; ++j) session.Value[stage.stage][j] = stage.values[j];
  }
}

}  // namespace kalvex
