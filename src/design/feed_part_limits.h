#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "design/network_editor.h"

namespace kalvex {

// The values a cable or transformer stage takes from the numbers entered for
// it, by the rules every stage is filled with: each value's magnitude, kept
// within its range (a cable 1 cm to 1 km long of 1 ohm to 10 kohm and a
// velocity factor of 0.1 to 1; a ratio from 0.01:1 to 100:1), the losses and
// inductances as entered (0: none). Each value moved to a limit adds its
// message to `resets`, in the words the Design page resets its values with:
// "Velocity factor has been reset to the maximum allowed (1)."
StageValues FeedPartValues(int16_t type, const StageValues& parsed, std::vector<std::string>& resets);

}  // namespace kalvex
