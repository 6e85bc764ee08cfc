#pragma once

#include <span>
#include <vector>

#include "model/session.h"

namespace kalvex {

// The points a network is judged at over its band: the sweep's frequencies,
// or with LoadSource 2 the load-data points the sweep runs over; the working
// frequency alone where there is no sweep. Each keeps its frequency and load,
// so that many networks are judged without reading the session again.
class BandResponse {
 public:
  explicit BandResponse(const Session& session);

  std::size_t Size() const { return frequencies_.size(); }
  double Frequency(std::size_t k) const { return frequencies_[k]; }

  // The VSWR at each point (Size() of them) of the network of `network` (a
  // copy of the session whose values may differ), in one batch.
  void VSWRs(const Session& network, std::span<double> vswr) const;

  // The worst VSWR over the band.
  double WorstVSWR(const Session& network) const;

 private:
  std::vector<double> frequencies_;
  std::vector<double> loadR_;
  std::vector<double> loadX_;
};

}  // namespace kalvex
