#include "files/load_points.h"

#include <algorithm>
#include <cmath>

namespace kalvex {

bool IsUsableLoad(double frequency, double r, double x) {
  return std::isfinite(frequency) && std::isfinite(r) && std::isfinite(x) && r >= 0;
}

std::string LeftOutLoadMessage(const std::string& name, const std::vector<long>& lines) {
  constexpr std::size_t kNamed = 20;
  std::string list;
  for (std::size_t k = 0; k < std::min(lines.size(), kNamed); ++k) {
    list += (k == 0 ? "" : ", ") + std::to_string(lines[k]);
  }
  if (lines.size() > kNamed) list += " and " + std::to_string(lines.size() - kNamed) + " more";
  return name + ": the point" + (lines.size() == 1 ? " of line " : "s of lines ") + list +
         (lines.size() == 1 ? " gives" : " give") + " no finite load impedance with a resistance of 0 or more and" +
         (lines.size() == 1 ? " is" : " are") + " left out.";
}

}  // namespace kalvex
