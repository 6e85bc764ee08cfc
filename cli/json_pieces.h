#pragma once

#include <optional>
#include <string>

#include <nlohmann/json.hpp>

namespace kalvex {

// What the commands' JSON writers share.
using Json = nlohmann::ordered_json;

// Values 1..`last` of a stage, as the network file stores them.
template <typename Values>
Json StageValuesJson(const Values& values, int last) {
  Json json = Json::array();
  for (int slot = 1; slot <= last; ++slot) json.push_back(values[slot]);
  return json;
}

// A figure that may be missing: null then.
inline Json Optional(const std::optional<double>& value) { return value ? Json(*value) : Json(nullptr); }

// One object on one line.
inline std::string Line(const Json& json) { return json.dump() + "\n"; }

}  // namespace kalvex
