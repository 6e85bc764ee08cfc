#include "model/network_state.h"

#include <cmath>

#include "model/calculate.h"
#include "model/format.h"
#include "model/network_abcd.h"
#include "model/number_text.h"
#include "model/reflection.h"
#include "model/trim.h"

namespace kalvex {

NetworkState NetworkStateOf(const Session& s) {
  return {s.ElementType, s.Value,      s.TwoPortBlocks, s.Frequency,  s.SystemZ,   s.LoadSource,
          s.DataIndex,   s.DefaultCapacitorQ, s.DefaultInductorQ, s.SweepStart, s.SweepStop,
          s.SweepPoints, s.LoadFreq,   s.LoadR,      s.LoadX};
}

void RestoreNetworkState(Session& s, const NetworkState& state) {
  s.ElementType = state.elementType;
  s.Value = state.value;
  s.TwoPortBlocks = state.twoPortBlocks;
  s.Frequency = state.frequency;
  s.SystemZ = state.systemZ;
  s.LoadSource = state.loadSource;
  s.DataIndex = state.dataIndex;
  s.DefaultCapacitorQ = state.defaultCapacitorQ;
  s.DefaultInductorQ = state.defaultInductorQ;
  s.SweepStart = state.sweepStart;
  s.SweepStop = state.sweepStop;
  s.SweepPoints = state.sweepPoints;
  s.LoadFreq = state.loadFreq;
  s.LoadR = state.loadR;
  s.LoadX = state.loadX;
}

std::string MatchStatusText(const Session& network, StatusForm form) {
  if (!(network.Frequency > 0) || !(network.SystemZ > 0)) return "";
  // A block whose file stops short of the working frequency gives no figures:
  // the line says which block and what its file covers instead.
  if (std::string uncovered = BlockRangeProblem(network, network.Frequency, network.Frequency); !uncovered.empty()) {
    return uncovered;
  }
  Session session = network;
  if (session.LoadSource != 2) session.LoadSource = 1;
  const int16_t point = session.LoadSource == 2 ? static_cast<int16_t>(session.SweepPoints / 2 + 1) : 0;
  CalculateNetwork(session, point);
  const PlottedPoint p = PlotImpedance(session.InputR, session.InputX, session.SystemZ);
  const bool brief = form == StatusForm::Brief;
  // Below this a reflection is rounding left over from an exact match.
  const bool matched = p.rho < kMatchedReflection;
  const std::string figures[] = {
      (brief ? "" : "Input ") + FormattedNumber("%.6g", session.InputR + 0.0) + (session.InputX < 0 ? " -j" : " +j") +
          FormattedNumber("%.6g", std::fabs(session.InputX)) + " ohms",
      matched ? std::string("|Gamma| 0, matched")
              : "|Gamma| " + FormattedNumber("%.4g", p.rho) + " at " + FormattedNumber("%.1f", ShownValue(p.angleDegrees, 1)) + " deg",
      "VSWR " + FormattedNumber("%.4g", matched ? 1.0 : VSWROf(p.rho)),
      (brief ? "RL " : "Return loss ") +
          (matched ? std::string("> 120 dB") : FormattedNumber("%.2f", ShownValue(ReturnLossDb(p.rho), 2)) + " dB"),
      "at " + std::string(Trim(FormatSI(session.Frequency), " ")) + "Hz"};
  // The brief form keeps each figure whole, so that a narrow line breaks
  // only between figures.
  std::string text;
  for (const std::string& figure : figures) {
    if (!text.empty()) text += brief ? "  " : "    ";
    for (const char c : figure) text += brief && c == ' ' ? std::string("\u00A0") : std::string(1, c);
  }
  return text;
}

}  // namespace kalvex
