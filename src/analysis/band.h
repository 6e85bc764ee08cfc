#pragma once

#include <optional>
#include <vector>

#include "model/network_loss.h"
#include "model/session.h"

namespace kalvex {

// How well the network matches over the sweep band (the sweep settings, or
// the load-data points): the worst and best points, the band edges at VSWR
// thresholds, and the Bode–Fano bound of the load.

struct BandPoint {
  double frequency = 0;
  double vswr = 0;
  double returnLoss = 0;  // dB
};

// Where the VSWR crosses `vswr` at the edges of the band that holds the
// working frequency (or, where the VSWR there is above it, the best point):
// nothing where the curve stays below the threshold to the sweep's end.
// Width and percentage (of the working frequency) need both edges.
struct BandEdges {
  double vswr = 0;
  std::optional<double> low;
  std::optional<double> high;
  std::optional<double> hertz;
  std::optional<double> percent;
};

// The load at the working frequency fitted as a resistance with a capacitor
// or an inductor (by the sign of its reactance), in series or in parallel,
// and the smallest reflection any lossless network holds flat over the band.
struct BodeFanoFit {
  bool capacitive = false;  // RC, else RL
  double r = 0;             // ohms
  double reactive = 0;      // farads or henries; 0 for a real load
  double gamma = 0;
  double vswr = 1;
  std::optional<double> returnLoss;  // dB; none for a gamma of 0
  bool lossless = false;             // R = 0: |Γ| = 1, no match over any band
};

struct BandFigures {
  LoadModel loadModel = LoadModel::Fixed;
  double workingFrequency = 0;
  double low = 0;   // the band's ends, Hz
  double high = 0;
  std::vector<BandPoint> points;  // the sweep, in its order
  BandPoint worst;
  BandPoint best;
  std::vector<BandEdges> edges;
  BodeFanoFit series;
  BodeFanoFit parallel;
  // ln(1/Γworst) / ln(1/Γbound) of the tighter fit: 1 where the network reaches
  // the bound; none where the bound is no limit (a real load).
  std::optional<double> boundUsed;
  // What the match costs at the working frequency: the power lost in the
  // network's parts and cables (see NetworkLossDb), and each cable's own
  // matched loss.
  std::optional<double> lossDb;
  std::vector<CableLoss> cableLosses;
};

inline const std::vector<double> kDefaultThresholds = {1.5, 2, 3};

// The figures of the session's network over its sweep, its own load taken as
// `loadModel` says. Each band edge is solved with the calculation between the
// two sweep points around it, to 1e-9 relative (with load data, the load
// taken linearly between its points).
BandFigures ComputeBandFigures(const Session& session,
                               const std::vector<double>& thresholds = kDefaultThresholds,
                               LoadModel loadModel = LoadModel::Fixed);

// The smallest flat reflection over ω1..ω2 of a load R with a reactive part
// (the Bode–Fano limits of the four RC and RL forms).
BodeFanoFit SeriesFit(double r, double x, double omega0, double omega1, double omega2);
BodeFanoFit ParallelFit(double r, double x, double omega0, double omega1, double omega2);

}  // namespace kalvex
