#include "analysis/band.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "analysis/sweep.h"
#include "model/batch_calculate.h"
#include "model/reflection.h"

namespace kalvex {
namespace {

constexpr double kPi = std::numbers::pi;

BodeFanoFit Limited(BodeFanoFit fit, double exponent) {
  fit.gamma = std::exp(-exponent);
  fit.vswr = VSWROf(fit.gamma);
  if (fit.gamma > 0) fit.returnLoss = -20 * std::log10(fit.gamma);
  return fit;
}

// A lossless load reflects everything at every frequency but where a network
// resonates it: no network holds a match over a band.
BodeFanoFit Lossless(BodeFanoFit fit) {
  fit.lossless = true;
  return Limited(fit, 0);
}

// The VSWR of the network at any frequency of the band: with load data, the
// load between two points is taken on the straight line between them; the
// network's own load as the load model has it.
class BandCalculation {
 public:
  explicit BandCalculation(const Session& session)
      : trial_(session),
        network_(session),
        working_{session.Value[0][1], session.Value[0][2]},
        workingFrequency_(session.Frequency) {}

  double VSWRAt(double f, const Session& session) {
    if (session.LoadSource == 2) {
      const int count = session.SweepPoints;
      int k = 1;
      while (k < count - 1 && session.LoadFreq[k + 1] < f) ++k;
      const double f1 = session.LoadFreq[k];
      const double f2 = session.LoadFreq[std::min(k + 1, count)];
      const double t = f2 > f1 ? (f - f1) / (f2 - f1) : 0;
      const int k2 = std::min(k + 1, count);
      trial_.Value[0][1] = session.LoadR[k] + t * (session.LoadR[k2] - session.LoadR[k]);
      trial_.Value[0][2] = session.LoadX[k] + t * (session.LoadX[k2] - session.LoadX[k]);
    } else {
      const Impedance load = LoadAtFrequency(working_, workingFrequency_, f, session.SweepLoadModel);
      trial_.Value[0][1] = load.R;
      trial_.Value[0][2] = load.X;
    }
    double r = trial_.Value[0][1];
    double x = trial_.Value[0][2];
    network_.Calculate({&f, 1}, {&r, 1}, {&x, 1});
    return VSWROf(PlotImpedance(r, x, trial_.SystemZ).rho);
  }

 private:
  Session trial_;
  NetworkBatch network_;
  Impedance working_;
  double workingFrequency_;
};

// The frequency between fa and fb (VSWR on either side of `level`) where the
// VSWR is `level`, by bisection to 1e-9 relative.
double Crossing(BandCalculation& calculation, const Session& session, double fa, double fb,
                double level) {
  const bool aBelow = calculation.VSWRAt(fa, session) <= level;
  for (int step = 0; step < 200 && std::fabs(fb - fa) > 1e-9 * std::fabs(fa + fb) / 2; ++step) {
    const double middle = (fa + fb) / 2;
    ((calculation.VSWRAt(middle, session) <= level) == aBelow ? fa : fb) = middle;
  }
  return (fa + fb) / 2;
}

}  // namespace

BodeFanoFit SeriesFit(double r, double x, double omega0, double omega1, double omega2) {
  BodeFanoFit fit{x < 0, r};
  if (r <= 0) return Lossless(fit);
  if (x == 0) return fit;
  if (x < 0) {
    fit.reactive = -1 / (omega0 * x);  // ln(1/Γ)(1/ω1 − 1/ω2) ≤ π R C
    return Limited(fit, kPi * r * fit.reactive / (1 / omega1 - 1 / omega2));
  }
  fit.reactive = x / omega0;  // ln(1/Γ)(ω2 − ω1) ≤ π R / L
  return Limited(fit, kPi * r / fit.reactive / (omega2 - omega1));
}

BodeFanoFit ParallelFit(double r, double x, double omega0, double omega1, double omega2) {
  const double m = r * r + x * x;
  const double g = r / m;
  const double b = -x / m;
  BodeFanoFit fit{b > 0, g > 0 ? 1 / g : 0};
  if (g <= 0) return Lossless(fit);
  if (b == 0) return fit;
  if (b > 0) {
    fit.reactive = b / omega0;  // ln(1/Γ)(ω2 − ω1) ≤ π / (R C)
    return Limited(fit, kPi / (fit.r * fit.reactive) / (omega2 - omega1));
  }
  fit.reactive = -1 / (omega0 * b);  // ln(1/Γ)(1/ω1 − 1/ω2) ≤ π L / R
  return Limited(fit, kPi * fit.reactive / fit.r / (1 / omega1 - 1 / omega2));
}

BandFigures ComputeBandFigures(const Session& session, const std::vector<double>& thresholds,
                               LoadModel loadModel) {
  BandFigures figures;
  figures.loadModel = loadModel;
  Session swept = session;
  swept.SweepLoadModel = loadModel;
  if (swept.LoadSource != 2) swept.LoadSource = 1;
  const SweepIndexes indexes = RunSweepPoints(swept, SweepUse::Table);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    if (!IsFiniteSweepPoint(swept, k)) continue;
    figures.points.push_back({swept.SweepFreq[k], swept.SweepVSWR[k], ReturnLossDb(swept.SweepRho[k])});
  }
  const int middle = swept.LoadSource == 2 ? swept.SweepPoints / 2 + 1 : 0;
  figures.workingFrequency = swept.LoadSource == 2 ? swept.LoadFreq[middle] : swept.Frequency;
  const auto workingPoint = static_cast<int16_t>(swept.LoadSource == 2 ? middle : 1);
  figures.lossDb = NetworkLossDb(swept, workingPoint);
  figures.cableLosses = CableMatchedLosses(swept, workingPoint);
  if (figures.points.empty()) return figures;
  const auto byVSWR = [](const BandPoint& a, const BandPoint& b) { return a.vswr < b.vswr; };
  figures.worst = *std::max_element(figures.points.begin(), figures.points.end(), byVSWR);
  figures.best = *std::min_element(figures.points.begin(), figures.points.end(), byVSWR);
  const auto [lowest, highest] = std::minmax_element(
      figures.points.begin(), figures.points.end(),
      [](const BandPoint& a, const BandPoint& b) { return a.frequency < b.frequency; });
  figures.low = lowest->frequency;
  figures.high = highest->frequency;

  // Band edges, on the points in frequency order.
  std::vector<BandPoint> ordered = figures.points;
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const BandPoint& a, const BandPoint& b) { return a.frequency < b.frequency; });
  BandCalculation calculation(swept);
  for (const double level : thresholds) {
    BandEdges edges{level};
    // The band's centre: the point nearest the working frequency when it is
    // inside the threshold, else the best point.
    std::size_t centre = 0;
    for (std::size_t k = 1; k < ordered.size(); ++k) {
      if (std::fabs(ordered[k].frequency - figures.workingFrequency) <
          std::fabs(ordered[centre].frequency - figures.workingFrequency)) {
        centre = k;
      }
    }
    if (ordered[centre].vswr > level) {
      centre = static_cast<std::size_t>(std::min_element(ordered.begin(), ordered.end(), byVSWR) - ordered.begin());
    }
    if (ordered[centre].vswr <= level) {
      std::size_t a = centre;
      while (a > 0 && ordered[a - 1].vswr <= level) --a;
      std::size_t b = centre;
      while (b + 1 < ordered.size() && ordered[b + 1].vswr <= level) ++b;
      if (a > 0) edges.low = Crossing(calculation, swept, ordered[a - 1].frequency, ordered[a].frequency, level);
      if (b + 1 < ordered.size()) {
        edges.high = Crossing(calculation, swept, ordered[b].frequency, ordered[b + 1].frequency, level);
      }
    }
    if (edges.low && edges.high) {
      edges.hertz = *edges.high - *edges.low;
      edges.percent = 100 * *edges.hertz / figures.workingFrequency;
    }
    figures.edges.push_back(edges);
  }

  // The load at the working frequency, against the band's ends.
  const double r = swept.LoadSource == 2 ? swept.LoadR[middle] : swept.Value[0][1];
  const double x = swept.LoadSource == 2 ? swept.LoadX[middle] : swept.Value[0][2];
  const double omega0 = 2 * kPi * figures.workingFrequency;
  const double omega1 = 2 * kPi * figures.low;
  const double omega2 = 2 * kPi * figures.high;
  if (omega2 > omega1 && omega1 > 0) {
    figures.series = SeriesFit(r, x, omega0, omega1, omega2);
    figures.parallel = ParallelFit(r, x, omega0, omega1, omega2);
    const double bound = std::max(figures.series.gamma, figures.parallel.gamma);
    const double worstGamma = (figures.worst.vswr - 1) / (figures.worst.vswr + 1);
    if (bound > 0 && bound < 1) figures.boundUsed = std::log(1 / worstGamma) / std::log(1 / bound);
  }
  return figures;
}

}  // namespace kalvex
