#include "model/session.h"

#include <cmath>

namespace kalvex {

void SetNetworkDefaults(Session& session) {
  session.Value[0][1] = 50;
  session.Value[0][2] = 0;
  for (int stage = 1; stage <= kLastStage; ++stage) {
    session.ElementType[stage] = Empty;
    for (int slot = 1; slot < kSlotCount; ++slot) session.Value[stage][slot] = 0;
    session.TwoPortBlocks[stage] = {};
  }
  session.Frequency = 1'000'000;
  session.SystemZ = 50;
}

void InitialiseSession(Session& session) {
  session.Version = "2.12";
  session.Pi = 4 * std::atan(1.0);
  session.GridType = 1;
  session.ChartZoom = 1.0f;
  session.ChartCentreX = 8000;
  session.ChartCentreY = 5000;
  session.ChartRadius = 3000 * session.ChartZoom;
  session.DesignControlColour = kWhite;
  session.AnalysisControlColour = kWhite;
  session.TopStepMode.fill(0);
  session.BottomStepMode.fill(0);

  SetNetworkDefaults(session);
  session.DefaultCapacitorQ = 1000;
  session.DefaultInductorQ = 200;
  // The overlays' sizes the Analysis page would give them, and a sweep around
  // the 1 MHz working frequency, so that a network written on a first run
  // passes the checks of the file reader.
  session.QCircle = 2;
  session.VSWRCircle = 2;
  session.SweepStart = 900'000;
  session.SweepStop = 1'100'000;
  session.SweepPoints = 21;
}

}  // namespace kalvex
