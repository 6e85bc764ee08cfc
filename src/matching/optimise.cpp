#include "matching/optimise.h"

#include <nlopt.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/reflection.h"
#include "model/sweep_indexes.h"
#include "model/vector_state.h"
#include "model/worst_reflection.h"

namespace kalvex {
namespace {

// One value the search moves: stage, slot, bounds, and whether on a log scale.
struct Variable {
  int stage;
  int slot;
  double low;
  double high;
  bool logarithmic;
};

void AddVariables(std::vector<Variable>& variables, int s, int16_t type, bool freeImpedances) {
  auto add = [&](int slot, double low, double high, bool logarithmic) {
    variables.push_back({s, slot, low, high, logarithmic});
  };
  switch (type) {
    case SeriesCapacitor: case ShuntCapacitor: add(1, 1e-12, 1e-3, true); break;
    case SeriesInductor: case ShuntInductor: add(1, 1e-12, 1, true); break;
    case SeriesLine: case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub: case ShuntOpenStub:
      add(1, 0.01, 360, false);
      if (freeImpedances) add(3, 1, 1000, true);
      break;
    case ShuntSeriesLC: case SeriesParallelLC:
      add(1, 1e-9, 1, true);
      add(3, 1e-12, 1e-3, true);
      break;
    case SeriesResistor: case ShuntResistor: add(1, 1, 1e6, true); break;
    // A feed line's length (m) and a transformer's ratio; the cable's make
    // and the windings stay as they are.
    case CoaxialCable: add(1, 0.01, 1000, true); break;
    case Transformer: add(1, 1.0 / 100, 100, true); break;
    default: break;
  }
}

// The worst |Γ| of the network with the variables at x (search units).
class WorstReflection {
 public:
  WorstReflection(const Session& session, std::vector<Variable> variables, bool overBand)
      : trial_(session), variables_(std::move(variables)) {
    if (trial_.LoadSource != 2) trial_.LoadSource = 1;
    const double working = trial_.Frequency;
    if (overBand && trial_.LoadSource == 2) {
      for (int k = 1; k <= std::min<int>(trial_.SweepPoints, kLoadPointCount - 1); ++k) points_.push_back(k);
    } else if (overBand && trial_.SweepPoints > 0) {
      const int count = std::min<int>(trial_.SweepPoints, kSweepPointCount - 1);
      for (int k = 0; k < count; ++k) {
        frequencies_.push_back(count > 1 ? trial_.SweepStart + k * (trial_.SweepStop - trial_.SweepStart) / (count - 1)
                                         : trial_.SweepStart);
      }
    } else if (trial_.LoadSource == 2) {
      points_.push_back(trial_.SweepPoints / 2 + 1);
    } else {
      frequencies_.push_back(working);
    }
  }

  double ToSearch(std::size_t k, double value) const {
    const Variable& v = variables_[k];
    const double clamped = std::clamp(std::isfinite(value) && value > 0 ? value : std::sqrt(v.low * v.high), v.low, v.high);
    return v.logarithmic ? std::log10(clamped) : clamped;
  }
  double FromSearch(std::size_t k, double x) const {
    return variables_[k].logarithmic ? std::pow(10.0, x) : x;
  }
  double Low(std::size_t k) const { return ToSearch(k, variables_[k].low); }
  double High(std::size_t k) const { return ToSearch(k, variables_[k].high); }
  std::size_t Size() const { return variables_.size(); }

  double operator()(const std::vector<double>& x) {
    ++evaluations_;
    for (std::size_t k = 0; k < variables_.size(); ++k) {
      trial_.Value[variables_[k].stage][variables_[k].slot] = FromSearch(k, x[k]);
    }
    const double worst = WorstPlottedRho(trial_, points_, frequencies_);
    return std::isfinite(worst) ? worst : 1;
  }

  int Evaluations() const { return evaluations_; }
  std::size_t Points() const { return points_.size() + frequencies_.size(); }

 private:
  Session trial_;
  std::vector<Variable> variables_;
  std::vector<int> points_;
  std::vector<double> frequencies_;
  int evaluations_ = 0;
};

// The n-th point of the Halton sequence in the unit cube of `dimensions`.
std::vector<double> Halton(int n, std::size_t dimensions) {
  static const int kPrimes[] = {2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47};
  std::vector<double> point;
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

double VSWROfReflection(double rho) { return VSWROf(std::min(rho, 1.0)); }

}  // namespace

OptimiseResult Optimise(const Session& session, const OptimiseRequest& request,
                        const OptimiseProgress& progress) {
  ClearUpperVectorState();  // the search's own arithmetic, often in a worker thread
  std::vector<Variable> variables;
  for (const int s : request.freeStages) {
    if (s >= 1 && s <= kLastStage) AddVariables(variables, s, session.ElementType[s], request.freeImpedances);
  }
  WorstReflection worst(session, variables, request.overBand);
  const std::size_t n = worst.Size();
  std::vector<double> start(n);
  for (std::size_t k = 0; k < n; ++k) start[k] = worst.ToSearch(k, session.Value[variables[k].stage][variables[k].slot]);

  OptimiseResult result;
  std::vector<double> best = start;
  double bestValue = n > 0 ? worst(start) : 0;
  const double startValue = bestValue;
  // The start as it stands (its values may lie outside the bounds): the result
  // is never worse than this.
  {
    WorstReflection asIs(session, {}, request.overBand);
    const double asIsValue = asIs({});
    result.before = VSWROfReflection(asIsValue);
    if (asIsValue <= bestValue) {
      bestValue = asIsValue;
      best.clear();
    }
  }

  if (n > 0) {
    // Roughly a second's work whatever the number of points.
    const int budget = static_cast<int>(std::clamp<std::size_t>(4'000'000 / std::max<std::size_t>(worst.Points(), 1), 2000, 40000));
    auto objective = [](const std::vector<double>& x, std::vector<double>&, void* data) {
      auto* context = static_cast<std::pair<WorstReflection*, const OptimiseProgress*>*>(data);
      const double value = (*context->first)(x);
      if (*context->second && !(*context->second)(context->first->Evaluations(), VSWROfReflection(value))) {
        throw nlopt::forced_stop();
      }
      return value;
    };
    std::pair<WorstReflection*, const OptimiseProgress*> context{&worst, &progress};

    // Starting points: the present values and the best of a Halton set.
    std::vector<std::pair<double, std::vector<double>>> candidates;
    const int samples = static_cast<int>(std::min<std::size_t>(32 * n, 256));
    try {
      for (int k = 1; k <= samples; ++k) {
        std::vector<double> x = Halton(k, n);
        for (std::size_t d = 0; d < n; ++d) x[d] = worst.Low(d) + x[d] * (worst.High(d) - worst.Low(d));
        std::vector<double> unused;
        candidates.push_back({objective(x, unused, &context), x});
      }
      std::stable_sort(candidates.begin(), candidates.end(),
                       [](const auto& a, const auto& b) { return a.first < b.first; });
      candidates.resize(std::min<std::size_t>(candidates.size(), 3));
      candidates.insert(candidates.begin(), {startValue, start});

      std::vector<double> low(n), high(n);
      for (std::size_t d = 0; d < n; ++d) {
        low[d] = worst.Low(d);
        high[d] = worst.High(d);
      }
      // Nelder-Mead on the worst case: measured against Subplex, COBYLA and
      // BOBYQA on five parts over 2,000 points it reached the lowest worst
      // VSWR in the same time; BOBYQA, which models a smooth function, misses
      // the corners of the worst case.
      for (auto& [value, x] : candidates) {
        nlopt::opt local(nlopt::LN_NELDERMEAD, static_cast<unsigned>(n));
        local.set_lower_bounds(low);
        local.set_upper_bounds(high);
        local.set_min_objective(objective, &context);
        local.set_xtol_rel(1e-12);
        local.set_ftol_abs(1e-14);
        local.set_maxeval(budget / static_cast<int>(candidates.size()));
        double found = value;
        try {
          local.optimize(x, found);
        } catch (const nlopt::roundoff_limited&) {
        } catch (const std::invalid_argument&) {
        }
        if (found < bestValue) {
          bestValue = found;
          best = x;
        }
      }
    } catch (const nlopt::forced_stop&) {
      result.cancelled = true;
    }
  }

  result.evaluations = worst.Evaluations();
  result.after = VSWROfReflection(bestValue);
  for (const int s : request.freeStages) {
    if (s < 1 || s > kLastStage) continue;
    OptimisedStage stage{s, session.ElementType[s]};
    for (int j = 1; j <= kValueSlots; ++j) stage.values[j] = session.Value[s][j];
    for (std::size_t k = 0; k < best.size(); ++k) {
      if (variables[k].stage == s) stage.values[variables[k].slot] = worst.FromSearch(k, best[k]);
    }
    result.stages.push_back(stage);
  }
  return result;
}

void ApplyOptimised(Session& session, const OptimiseResult& result) {
  for (const OptimisedStage& stage : result.stages) {
    for (int j = 1; j <= kValueSlots; ++j) session.Value[stage.stage][j] = stage.values[j];
  }
}

}  // namespace kalvex
