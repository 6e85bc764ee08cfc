#include "model/calculate.h"

#include <algorithm>

#include "model/elements.h"
#include "model/feed_parts.h"
#include "model/vector_state.h"

namespace kalvex {
namespace {

Impedance CalculateStage(int16_t type, const std::array<double, kSlotCount>& slot,
                         const TwoPortTable* block, double f, Impedance in) {
  const LineSlots line{slot[1], slot[2], slot[3]};
  const LCSlots lc{slot[1], slot[2], slot[3], slot[4]};
  switch (type) {
    case SeriesCapacitor: return SeriesCapacitorStage(slot[1], slot[2], f, in);
    case ShuntCapacitor: return ShuntCapacitorStage(slot[1], slot[2], f, in);
    case SeriesInductor: return SeriesInductorStage(slot[1], slot[2], f, in);
    case ShuntInductor: return ShuntInductorStage(slot[1], slot[2], f, in);
    case SeriesLine: return SeriesLineStage(line, f, in);
    case SeriesShortedStub: return SeriesShortedStubStage(line, f, in);
    case SeriesOpenStub: return SeriesOpenStubStage(line, f, in);
    case ShuntShortedStub: return ShuntShortedStubStage(line, f, in);
    case ShuntOpenStub: return ShuntOpenStubStage(line, f, in);
    case ShuntSeriesLC: return ShuntSeriesLCStage(lc, f, in);
    case SeriesParallelLC: return SeriesParallelLCStage(lc, f, in);
    case SeriesResistor: return SeriesResistorStage(slot[1], in);
    case ShuntResistor: return ShuntResistorStage(slot[1], in);
    case CoaxialCable: return CableStage(CableOf(slot), f, in);
    case Transformer: return TransformerStage(TransformerOf(slot), f, in);
    case TwoPort: return TwoPortStage(block, BlockOf(slot), f, in);
    default: return in;  // empty stages and the insert placeholder
  }
}

bool IsLineOrStub(int16_t type) { return type >= SeriesLine && type <= ShuntOpenStub; }

}  // namespace

Impedance NetworkLoad(Session& session, int16_t pointIndex) {
  if (session.LoadSource == 1) return {session.Value[0][1], session.Value[0][2]};
  const int point = std::clamp<int>(pointIndex, 0, kLoadPointCount - 1);
  session.Frequency = session.LoadFreq[point];
  return {session.LoadR[point], session.LoadX[point]};
}

Impedance ThroughStages(Session& session, Impedance z, int first, int last) {
  for (int stage = first; stage <= last; ++stage) {
    const int16_t type = session.ElementType[stage];
    if (IsLineOrStub(type)) session.VelocityFactor = 1.0;
    z = CalculateStage(type, session.Value[stage], session.TwoPortBlocks[stage].table.get(),
                       session.Frequency, z);
  }
  return z;
}

void CalculateNetwork(Session& session, int16_t pointIndex) {
  // Called in loops from everywhere (the window's too): each call starts with
  // the upper vector state clear, whatever ran before it.
  ClearUpperVectorState();
  if (session.Frequency <= 0) return;
  const Impedance z = ThroughStages(session, NetworkLoad(session, pointIndex), 1, kLastStage);
  session.InputR = z.R;
  session.InputX = z.X;
}

}  // namespace kalvex
