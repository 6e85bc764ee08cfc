#pragma once

#include <string>
#include <vector>

namespace kalvex {

// A measured load point Kalvex can take: finite, and with a resistance of 0
// or more (a negative one is a source, not a load; R = 0 is a lossless load).
bool IsUsableLoad(double frequency, double r, double x);

// "NAME: the points of lines 7, 9 give no finite load impedance with a
// resistance of 0 or more and are left out.", naming the first twenty lines.
std::string LeftOutLoadMessage(const std::string& name, const std::vector<long>& lines);

}  // namespace kalvex
