#pragma once

#include <cstddef>
#include <vector>

#include "model/load_model.h"
#include "model/session.h"

namespace kalvex {

// What the optimiser minimises, apart from how it searches: the network of a
// session with some of its values set from outside, and |Γ|² at each point
// of the goal - the sweep settings' frequencies, the load-data points, or the
// working frequency alone. Each point's load (measured, or the network's own
// as the load model takes it) is worked out once; each evaluation is one
// batched calculation over the points asked for.
class BandObjective {
 public:
  BandObjective(const Session& session, bool overBand, LoadModel loadModel);

  std::size_t Points() const { return points_.size(); }

  // Stage `stage`'s value slot `slot` for the evaluations that follow.
  void SetValue(int stage, int slot, double value) { trial_.Value[stage][slot] = value; }

  // |Γ|² at each of `indexes` (into `squared`, in their order); 1 where the
  // network gives no finite impedance.
  void Reflections(const std::vector<std::size_t>& indexes, std::vector<double>& squared);

  // The largest |Γ|² over `indexes`, and over every point.
  double Worst(const std::vector<std::size_t>& indexes);
  double WorstOfAll();

  // Points taken so far (one point of one network counts one).
  long long PointEvaluations() const { return pointEvaluations_; }

 private:
  struct Point {
    double frequency;
    Impedance load;
  };
  Session trial_;
  std::vector<Point> points_;
  std::vector<std::size_t> all_;
  long long pointEvaluations_ = 0;
  // The batch's arrays, kept between evaluations.
  std::vector<double> f_, r_, x_, worstScratch_;
};

}  // namespace kalvex
