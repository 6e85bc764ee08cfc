#include "chart/network_path.h"

#include <array>
#include <cmath>

#include "chart/chart_view.h"
#include "model/calculate.h"
#include "model/reflection.h"
#include "model/vector_state.h"

namespace kalvex {
namespace {

constexpr int kStepsPerStage = 1000;
using Slots = decltype(Session::Value);

// Where a stage starts: a value with no effect on the impedance.
void SetNeutral(Session& session, const Slots& saved, int s) {
  auto& v = session.Value[s];
  switch (session.ElementType[s]) {
    case SeriesCapacitor: case ShuntInductor: case ShuntResistor: v[1] = saved[s][1] * 1000; break;
    case ShuntCapacitor: case SeriesInductor: case SeriesLine: case SeriesShortedStub:
    case ShuntOpenStub: case SeriesResistor: v[1] = saved[s][1] / 1000; break;
    case SeriesOpenStub: case ShuntShortedStub:
      v[1] = saved[s][2] * 90 / session.Frequency;  // a quarter wave
      break;
    case ShuntSeriesLC:
      v[1] = saved[s][1] * 1000;
      v[3] = saved[s][3] / 1000;
      break;
    case SeriesParallelLC:
      v[1] = saved[s][1] / 1000;
      v[3] = saved[s][3] * 1000;
      break;
    case CoaxialCable: v[1] = 0; break;
    case Transformer:  // 1:1 with neither winding inductance is no transformer at all
      v[1] = 1;
      v[2] = 0;
      v[3] = 0;
      break;
    case TwoPort: v[kHeldBackSlot] = 1; break;  // the whole block held back: a through connection
    default: break;
  }
}

// The stage's values at the fraction t of its growth.
void SetGrown(Session& session, const Slots& saved, int s, float t) {
  auto& v = session.Value[s];
  const double q = saved[s][2] * 90 / session.Frequency;
  switch (session.ElementType[s]) {
    case SeriesCapacitor: case ShuntInductor: case ShuntResistor: v[1] = saved[s][1] / t; break;
    case ShuntCapacitor: case SeriesInductor: case SeriesResistor: v[1] = t * saved[s][1]; break;
    case SeriesLine: case SeriesShortedStub: case ShuntOpenStub:
      v[1] = t * static_cast<float>(saved[s][1]);
      v[3] = saved[s][3];
      break;
    case SeriesOpenStub: case ShuntShortedStub: v[1] = q + t * (saved[s][1] - q); break;
    case ShuntSeriesLC:
      v[1] = saved[s][1] / t;
      v[3] = t * saved[s][3];
      break;
    case SeriesParallelLC:
      v[1] = t * static_cast<float>(saved[s][1]);
      v[3] = saved[s][3] / t;
      break;
    case CoaxialCable: v[1] = t * saved[s][1]; break;
    case Transformer:
      // The ratio grows from 1; the magnetising inductance comes in from an
      // open circuit and the leakage inductance from a short, as the shunt and
      // series inductors do.
      v[1] = 1 + t * (saved[s][1] - 1);
      v[2] = saved[s][2] / t;
      v[3] = t * saved[s][3];
      break;
    case TwoPort: v[kHeldBackSlot] = 1 - t; break;
    default: break;
  }
}

}  // namespace

Colour StageArcColour(int stage) {
  static constexpr Colour kColours[] = {0, RGB(17, 17, 255), RGB(221, 17, 17), RGB(17, 255, 17),
                                        RGB(238, 153, 17), RGB(136, 221, 221)};
  return kColours[stage];
}

std::vector<PathPoint> TraceNetworkPath(Session& session) {
  ClearUpperVectorState();
  const Slots saved = session.Value;
  for (int s = 1; s <= kLastStage; ++s) SetNeutral(session, saved, s);
  session.DataIndex = session.LoadSource == 2 ? session.SweepPoints / 2 + 1 : 1;
  std::vector<PathPoint> path;
  path.reserve(kLastStage * kStepsPerStage);
  // Without a working frequency the calculation leaves the input impedance
  // as it was, at every point.
  CalculateNetwork(session, session.DataIndex);
  const bool calculated = session.Frequency > 0;
  for (int stage = 1; stage <= kLastStage; ++stage) {
    // The stages before this one stay as they are during its stretch: they
    // are carried through once, and each step recalculates from this stage on.
    const Impedance before =
        calculated ? ThroughStages(session, NetworkLoad(session, session.DataIndex), 1, stage - 1) : Impedance{};
    float t = 0;
    for (int step = 0; step < kStepsPerStage; ++step) {
      t += 0.001f;  // single precision: the last step is 0.9999907
      SetGrown(session, saved, stage, t);
      if (calculated) {
        const Impedance z = ThroughStages(session, before, stage, kLastStage);
        session.InputR = z.R;
        session.InputX = z.X;
      }
      const Gamma gamma = PlottedGamma(session.InputR, session.InputX, session.SystemZ);
      if (std::isfinite(gamma.u) && std::isfinite(gamma.v)) path.push_back({stage, gamma});
    }
  }
  session.Rho = PlotImpedance(session.InputR, session.InputX, session.SystemZ).rho;
  session.Value = saved;
  return path;
}

void DrawNetworkArcs(Session& session, Canvas& canvas) {
  const std::vector<PathPoint> path = TraceNetworkPath(session);
  if (path.empty()) return;
  const ChartView view = ChartView::Of(session);
  const Point first = view.GammaToPage(path.front().gamma);
  canvas.SetLineWidth(6);
  canvas.Circle(first, 1, StageArcColour(path.front().stage));
  canvas.MoveTo(first);
  canvas.SetLineWidth(2);
  for (std::size_t k = 1; k < path.size(); ++k) {
    canvas.LineTo(view.GammaToPage(path[k].gamma), StageArcColour(path[k].stage));
  }
  canvas.SetLineWidth(1);
  session.ArcColour = 0;
}

}  // namespace kalvex
