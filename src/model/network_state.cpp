#include "model/network_state.h"

#include <cstdio>

#include "model/calculate.h"
#include "model/format.h"
#include "model/number_text.h"
#include "model/reflection.h"
#include "model/trim.h"

namespace kalvex {

NetworkState NetworkStateOf(const Session& s) {
  return {s.ElementType, s.Value,      s.Frequency,  s.SystemZ,   s.LoadSource,
          s.DataIndex,   s.DefaultCapacitorQ, s.DefaultInductorQ, s.SweepStart, s.SweepStop,
          s.SweepPoints, s.LoadFreq,   s.LoadR,      s.LoadX};
}

void RestoreNetworkState(Session& s, const NetworkState& state) {
  s.ElementType = state.elementType;
  s.Value = state.value;
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

std::string MatchStatusText(const Session& network) {
  if (!(network.Frequency > 0) || !(network.SystemZ > 0)) return "";
  Session session = network;
  if (session.LoadSource != 2) session.LoadSource = 1;
  const int16_t point = session.LoadSource == 2 ? static_cast<int16_t>(session.SweepPoints / 2 + 1) : 0;
  CalculateNetwork(session, point);
  const PlottedPoint p = PlotImpedance(session.InputR, session.InputX, session.SystemZ);
  char text[256];
  std::snprintf(text, sizeof text,
                "Input %.6g %sj%.6g ohms    |Gamma| %.4g at %.1f deg    VSWR %.4g    Return loss %.2f dB    at %sHz",
                session.InputR + 0.0, session.InputX < 0 ? "-" : "+", std::fabs(session.InputX), p.rho,
                ShownValue(p.angleDegrees, 1), VSWROf(p.rho), ShownValue(ReturnLossDb(p.rho), 2),
                std::string(Trim(FormatSI(session.Frequency), " ")).c_str());
  return text;
}

}  // namespace kalvex
