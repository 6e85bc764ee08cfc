#include "device/saved_load.h"

namespace kalvex {

SavedLoad SaveLoad(const Session& s) {
  return {s.LoadSource, s.SweepPoints, s.DataIndex, s.SweepStart, s.SweepStop, s.Frequency,
          s.Value[0][1], s.Value[0][2], s.LoadFreq, s.LoadR, s.LoadX};
}

void RestoreLoad(Session& s, const SavedLoad& saved) {
  s.LoadSource = saved.LoadSource;
  s.SweepPoints = saved.SweepPoints;
  s.DataIndex = saved.DataIndex;
  s.SweepStart = saved.SweepStart;
  s.SweepStop = saved.SweepStop;
  s.Frequency = saved.Frequency;
  s.Value[0][1] = saved.LoadResistance;
  s.Value[0][2] = saved.LoadReactance;
  s.LoadFreq = saved.LoadFreq;
  s.LoadR = saved.LoadR;
  s.LoadX = saved.LoadX;
}

}  // namespace kalvex
