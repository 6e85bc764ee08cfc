#pragma once

#include <optional>
#include <string>
#include <vector>

#include "matching/parts.h"

namespace kalvex {

// A per-kind list of the command line, "C=5,L=5,R=1,LINE=2": each kind
// (C, L, R, LINE, in any case) with its value word. Nothing when an entry has
// no '=' or names no kind.
std::optional<std::vector<std::pair<PartKind, std::string>>> PartKindList(const std::string& text);

}  // namespace kalvex
