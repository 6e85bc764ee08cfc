#include "model/worst_reflection.h"

#include <algorithm>
#include <vector>

#include "model/batch_calculate.h"

namespace kalvex {

double WorstPlottedRho(const Session& network, std::span<const int> points,
                       std::span<const double> frequencies) {
  const std::size_t n = points.size() + frequencies.size();
  std::vector<double> f(n);
  std::vector<double> r(n);
  std::vector<double> x(n);
  for (std::size_t k = 0; k < points.size(); ++k) {
    const int point = std::clamp(points[k], 0, kLoadPointCount - 1);
    f[k] = network.LoadFreq[point];
    r[k] = network.LoadR[point];
    x[k] = network.LoadX[point];
  }
  std::copy(frequencies.begin(), frequencies.end(), f.begin() + static_cast<std::ptrdiff_t>(points.size()));
  std::fill(r.begin() + static_cast<std::ptrdiff_t>(points.size()), r.end(), network.Value[0][1]);
  std::fill(x.begin() + static_cast<std::ptrdiff_t>(points.size()), x.end(), network.Value[0][2]);
  NetworkBatch(network).Calculate(f, r, x);
  std::vector<double>& rho = f;  // the frequencies are no longer needed
  PlottedRho(r, x, network.SystemZ, rho);
  double worst = 0;
  for (const double value : rho) worst = std::max(worst, value);
  return worst;
}

}  // namespace kalvex
