#include "matching/yield.h"

#include <algorithm>
#include <cmath>
#include <thread>

#include "matching/band_response.h"
#include "model/vector_state.h"

namespace kalvex {
namespace {

std::uint64_t SplitMix(std::uint64_t& state) {
  std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

// The draws of one sample: its own stream, from the seed and its number, and
// written out here rather than taken from <random>, whose normal
// distribution differs between standard libraries.
class SampleDraws {
 public:
  SampleDraws(std::uint64_t seed, std::uint64_t sample) : state_(seed) {
    state_ ^= SplitMix(sample);
  }
  // Uniform in [0, 1).
  double Unit() { return static_cast<double>(SplitMix(state_) >> 11) * 0x1.0p-53; }
  // A relative deviation in [-1, 1] of the tolerance.
  double Deviation(Spread spread) {
    if (spread == Spread::Uniform) return 2 * Unit() - 1;
    for (;;) {
      const double z = std::sqrt(-2 * std::log(1 - Unit())) * std::cos(2 * M_PI * Unit());
      if (std::fabs(z) <= 3) return z / 3;
    }
  }

 private:
  std::uint64_t state_;
};

struct Toleranced {
  NetworkPart part;
  double nominal;
  double tolerance;  // as a fraction
};

void SetParts(Session& trial, const std::vector<Toleranced>& parts, const std::vector<double>& deviations) {
  for (std::size_t p = 0; p < parts.size(); ++p) {
    trial.Value[parts[p].part.stage][parts[p].part.slot] = parts[p].nominal * (1 + parts[p].tolerance * deviations[p]);
  }
}

// The nearest-rank percentile of `values`, reordering them.
float Percentile(std::vector<float>& values, double share) {
  const std::size_t rank = static_cast<std::size_t>(std::ceil(share * values.size()));
  const auto at = values.begin() + static_cast<std::ptrdiff_t>(std::clamp<std::size_t>(rank, 1, values.size()) - 1);
  std::nth_element(values.begin(), at, values.end());
  return *at;
}

// `value` to float, rounded down: the envelope drawn from it never passes
// the worst of the samples, nor of the corners, however near it comes.
float FloatBelow(double value) {
  const float rounded = static_cast<float>(value);
  return rounded > value ? std::nextafter(rounded, 0.0f) : rounded;
}

constexpr int kBlock = 128;

bool SamePart(const NetworkPart& a, const NetworkPart& b) {
  return a.stage == b.stage && a.slot == b.slot && a.kind == b.kind;
}

}  // namespace

double ToleranceOf(const YieldRequest& request, const NetworkPart& part) {
  for (const PartTolerance& own : request.partTolerances) {
    if (SamePart(own.part, part)) return own.percent;
  }
  return request.tolerances.Of(part.kind);
}

void SetTolerance(YieldRequest& request, const NetworkPart& part, double percent) {
  std::erase_if(request.partTolerances, [&part](const PartTolerance& own) { return SamePart(own.part, part); });
  request.partTolerances.push_back({part, percent});
}

YieldResult ComputeYield(const Session& session, const YieldRequest& request, const std::atomic<bool>* cancel) {
  const BandResponse band(session);
  const std::size_t points = band.Size();
  std::vector<Toleranced> parts;
  for (const NetworkPart& part : PartsOf(session)) {
    const double tolerance = ToleranceOf(request, part) / 100;
    if (tolerance > 0) parts.push_back({part, session.Value[part.stage][part.slot], tolerance});
  }
  YieldResult result;
  Session nominal = session;
  std::vector<double> deviations(parts.size(), 0.0);
  std::vector<double> vswr(points);
  band.VSWRs(nominal, vswr);
  result.envelope.resize(points);
  for (std::size_t k = 0; k < points; ++k) {
    result.envelope[k].frequency = band.Frequency(k);
    result.envelope[k].nominal = vswr[k];
    result.nominalWorst = std::max(result.nominalWorst, vswr[k]);
  }

  const auto cancelled = [] {
    YieldResult none;
    none.cancelled = true;
    return none;
  };
  // Every part at one end or the other: 2^n networks, n at most ten.
  for (std::uint32_t corner = 0; corner < (1u << parts.size()); ++corner) {
    if (corner % kBlock == 0 && cancel && cancel->load()) return cancelled();
    for (std::size_t p = 0; p < parts.size(); ++p) deviations[p] = (corner >> p) & 1 ? 1 : -1;
    SetParts(nominal, parts, deviations);
    band.VSWRs(nominal, vswr);
    for (std::size_t k = 0; k < points; ++k) {
      result.envelope[k].worst = std::max(result.envelope[k].worst, vswr[k]);
      result.cornersWorst = std::max(result.cornersWorst, vswr[k]);
    }
  }

  for (std::size_t p = 0; p < parts.size(); ++p) {
    PartSpread spread{parts[p].part, parts[p].tolerance * 100};
    std::fill(deviations.begin(), deviations.end(), 0.0);
    deviations[p] = -1;
    SetParts(nominal, parts, deviations);
    spread.lowVSWR = band.WorstVSWR(nominal);
    deviations[p] = 1;
    SetParts(nominal, parts, deviations);
    spread.highVSWR = band.WorstVSWR(nominal);
    spread.change = std::max(std::fabs(spread.lowVSWR - result.nominalWorst),
                             std::fabs(spread.highVSWR - result.nominalWorst));
    result.parts.push_back(spread);
  }
  std::stable_sort(result.parts.begin(), result.parts.end(),
                   [](const PartSpread& a, const PartSpread& b) { return a.change > b.change; });

  const int samples = std::max(request.samples, 1);
  result.samples = samples;
  result.sampleWorst.assign(static_cast<std::size_t>(samples), 0.0);
  // Point-major, so that each point's percentiles read one row. Kept as
  // float, to seven digits, which no plot or table shows: at the 100,000
  // samples a run may take over a 2,001-point band it is 0.8 GB, not 1.6.
  std::vector<std::vector<float>> pointVSWR(points, std::vector<float>(static_cast<std::size_t>(samples)));
  std::atomic<int> nextBlock{0};
  std::atomic<bool> stopped{false};
  auto work = [&] {
    ClearUpperVectorState();
    Session trial = session;
    std::vector<double> draw(parts.size());
    std::vector<double> sampleVSWR(points);
    for (;;) {
      const int first = kBlock * nextBlock++;
      if (first >= samples) return;
      if (cancel && cancel->load()) {
        stopped = true;
        return;
      }
      for (int s = first; s < std::min(first + kBlock, samples); ++s) {
        SampleDraws draws(request.seed, static_cast<std::uint64_t>(s));
        for (double& d : draw) d = draws.Deviation(request.spread);
        SetParts(trial, parts, draw);
        band.VSWRs(trial, sampleVSWR);
        double worst = 1;
        for (std::size_t k = 0; k < points; ++k) {
          pointVSWR[k][static_cast<std::size_t>(s)] = FloatBelow(sampleVSWR[k]);
          worst = std::max(worst, sampleVSWR[k]);
        }
        result.sampleWorst[static_cast<std::size_t>(s)] = worst;
      }
    }
  };
  const int threads = request.threads > 0 ? request.threads : static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  std::vector<std::jthread> pool;
  for (int t = 1; t < threads; ++t) pool.emplace_back(work);
  work();
  pool.clear();
  if (stopped) return cancelled();

  const auto good = std::count_if(result.sampleWorst.begin(), result.sampleWorst.end(),
                                  [&](double worst) { return worst <= request.goal; });
  result.yield = static_cast<double>(good) / samples;
  for (std::size_t k = 0; k < points; ++k) {
    result.envelope[k].low = Percentile(pointVSWR[k], 0.05);
    result.envelope[k].median = Percentile(pointVSWR[k], 0.50);
    result.envelope[k].high = Percentile(pointVSWR[k], 0.95);
  }
  return result;
}

}  // namespace kalvex
