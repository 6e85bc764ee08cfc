#include "design/feed_part_limits.h"

#include <cmath>

namespace kalvex {
namespace {

// A value's range and how the messages name its value and its two ends;
// a slot without a row takes any magnitude.
struct ValueLimit {
  int16_t type;
  int slot;
  const char* what;
  double lowest;
  const char* lowestText;
  double highest;
  const char* highestText;
};

constexpr ValueLimit kLimits[] = {
    {CoaxialCable, 1, "Cable length", 0.01, "1 cm", 1000, "1 km"},
    {CoaxialCable, 2, "Cable impedance", 1, "1 ohm", 10'000, "10K"},
    {CoaxialCable, 3, "Velocity factor", 0.1, "0.1", 1, "1"},
    {Transformer, 1, "Transformer ratio", 0.01, "0.01:1", 100, "100:1"},
};

// The slots each type fills: the cable all five, the transformer three.
int LastSlot(int16_t type) { return type == CoaxialCable ? 5 : 3; }

}  // namespace

StageValues FeedPartValues(int16_t type, const StageValues& parsed, std::vector<std::string>& resets) {
  StageValues v{};
  if (type != CoaxialCable && type != Transformer) return v;
  for (int k = 1; k <= LastSlot(type); ++k) v[k] = std::fabs(parsed[k]);
  for (const ValueLimit& limit : kLimits) {
    if (limit.type != type) continue;
    double& value = v[limit.slot];
    if (!(value >= limit.lowest)) {
      value = limit.lowest;
      resets.push_back(std::string(limit.what) + " has been reset to the minimum allowed (" + limit.lowestText + ").");
    } else if (value > limit.highest) {
      value = limit.highest;
      resets.push_back(std::string(limit.what) + " has been reset to the maximum allowed (" + limit.highestText + ").");
    }
  }
  return v;
}

}  // namespace kalvex
