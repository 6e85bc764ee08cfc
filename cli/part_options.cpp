#include "part_options.h"

#include <sstream>

namespace kalvex {

std::optional<std::vector<std::pair<PartKind, std::string>>> PartKindList(const std::string& text) {
  std::vector<std::pair<PartKind, std::string>> entries;
  std::istringstream list(text);
  for (std::string entry; std::getline(list, entry, ',');) {
    const std::size_t equals = entry.find('=');
    if (equals == std::string::npos) return std::nullopt;
    const auto kind = PartKindNamed(entry.substr(0, equals));
    if (!kind) return std::nullopt;
    entries.emplace_back(*kind, entry.substr(equals + 1));
  }
  if (entries.empty()) return std::nullopt;
  return entries;
}

}  // namespace kalvex
