#pragma once

#include <vector>

#include "model/elements.h"
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

  // The VSWR at point k of the network in `trial` (a copy of the session whose
  // values may differ); `trial`'s Frequency is left at that point's.
  double VSWRAt(Session& trial, std::size_t k) const;

  // The worst VSWR over the band.
  double WorstVSWR(Session& trial) const;

 private:
  std::vector<double> frequencies_;
  std::vector<Impedance> loads_;
};

}  // namespace kalvex
