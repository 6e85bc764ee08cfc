#pragma once

#include <array>
#include <string>

#include "model/session.h"

namespace kalvex {

// The part of the session an undo step restores: the network with its load,
// the operating point, the system impedance, the component defaults and the
// load-data table with the sweep range it sets. Views, overlays, options and
// results are not part of it: they follow from it when a page is drawn again
// (a calculation sets the velocity factor, so it cannot be part of a step).
// Nor is the file name: saving a network changes nothing an undo would undo.
struct NetworkState {
  std::array<int16_t, kStageCount> elementType{};
  std::array<std::array<double, kSlotCount>, kValueStageCount> value{};
  std::array<TwoPortBlock, kValueStageCount> twoPortBlocks{};
  double frequency = 0;
  double systemZ = 0;
  int16_t loadSource = 0;
  int16_t dataIndex = 0;
  float defaultCapacitorQ = 0;
  float defaultInductorQ = 0;
  double sweepStart = 0;
  double sweepStop = 0;
  int16_t sweepPoints = 0;
  std::array<double, kLoadPointCount> loadFreq{};
  std::array<double, kLoadPointCount> loadR{};
  std::array<double, kLoadPointCount> loadX{};

  bool operator==(const NetworkState&) const = default;
};

NetworkState NetworkStateOf(const Session& session);
void RestoreNetworkState(Session& session, const NetworkState& state);

// A reflection below this is an exact match: it shows as 0, "matched", with
// a return loss above 120 dB rather than the rounding's figures.
inline constexpr double kMatchedReflection = 1e-9;
// The return loss of that reflection, 20 log10(1 / 1e-9).
inline constexpr double kMatchedReturnLossDb = 180;

// The match at the working frequency as one line: "Input 50.1 -j113.7 ohms
// |Gamma| 0.747 at -47.1 deg  VSWR 6.89  Return loss 2.54 dB  at 14 MHz";
// the brief form for a narrow window drops "Input", says "RL" and joins each
// figure's words with no-break spaces. Empty while there is no working
// frequency. Where a two-port block's file does not cover the working
// frequency, the line names the block and the range its file covers.
enum class StatusForm { Full, Brief };
std::string MatchStatusText(const Session& session, StatusForm form = StatusForm::Full);

}  // namespace kalvex
