#pragma once

#include <array>
#include <cstdint>

#include "model/session.h"

namespace kalvex {

// The session's load as it stood before live measuring replaced it: the
// load-data table and its sweep range, the working point and the single load.
struct SavedLoad {
  int16_t LoadSource = 0;
  int16_t SweepPoints = 0;
  int16_t DataIndex = 0;
  double SweepStart = 0;
  double SweepStop = 0;
  double Frequency = 0;
  double LoadResistance = 0;
  double LoadReactance = 0;
  std::array<double, kLoadPointCount> LoadFreq{};
  std::array<double, kLoadPointCount> LoadR{};
  std::array<double, kLoadPointCount> LoadX{};
};

SavedLoad SaveLoad(const Session& session);
void RestoreLoad(Session& session, const SavedLoad& saved);

}  // namespace kalvex
