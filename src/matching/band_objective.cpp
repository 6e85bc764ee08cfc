#include "matching/band_objective.h"

#include <algorithm>
#include <cmath>

#include "model/batch_calculate.h"

namespace kalvex {

BandObjective::BandObjective(const Session& session, bool overBand, LoadModel loadModel) : trial_(session) {
  const Impedance own{session.Value[0][1], session.Value[0][2]};
  const double working = session.Frequency;
  auto addFrequency = [&](double f) { points_.push_back({f, LoadAtFrequency(own, working, f, loadModel)}); };
  auto addLoadPoint = [&](int k) { points_.push_back({session.LoadFreq[k], {session.LoadR[k], session.LoadX[k]}}); };
  const bool loadData = session.LoadSource == 2;
  if (overBand && loadData) {
    for (int k = 1; k <= std::min<int>(session.SweepPoints, kLoadPointCount - 1); ++k) addLoadPoint(k);
  } else if (overBand && session.SweepPoints > 0) {
    const int count = std::min<int>(session.SweepPoints, kSweepPointCount - 1);
    for (int k = 0; k < count; ++k) {
      addFrequency(count > 1 ? session.SweepStart + k * (session.SweepStop - session.SweepStart) / (count - 1)
                             : session.SweepStart);
    }
  } else if (loadData) {
    addLoadPoint(session.SweepPoints / 2 + 1);
  } else {
    addFrequency(working);
  }
  for (std::size_t k = 0; k < points_.size(); ++k) all_.push_back(k);
}

void BandObjective::Reflections(const std::vector<std::size_t>& indexes, std::vector<double>& squared) {
  const std::size_t n = indexes.size();
  f_.resize(n);
  r_.resize(n);
  x_.resize(n);
  for (std::size_t k = 0; k < n; ++k) {
    const Point& point = points_[indexes[k]];
    f_[k] = point.frequency;
    r_[k] = point.load.R;
    x_[k] = point.load.X;
  }
  NetworkBatch(trial_).Calculate(f_, r_, x_);
  pointEvaluations_ += static_cast<long long>(n);
  const double z0 = trial_.SystemZ;
  squared.resize(n);
  for (std::size_t k = 0; k < n; ++k) {
    const double r = r_[k];
    const double x = x_[k];
    const double value = ((r - z0) * (r - z0) + x * x) / ((r + z0) * (r + z0) + x * x);
    squared[k] = std::isfinite(value) ? std::min(value, 1.0) : 1.0;
  }
}

double BandObjective::Worst(const std::vector<std::size_t>& indexes) {
  Reflections(indexes, worstScratch_);
  double worst = 0;
  for (const double value : worstScratch_) worst = std::max(worst, value);
  return worst;
}

double BandObjective::WorstOfAll() { return Worst(all_); }

}  // namespace kalvex
