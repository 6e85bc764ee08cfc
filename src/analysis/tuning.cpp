#include "analysis/tuning.h"

#include "model/format.h"

namespace kalvex {
namespace {

// The Value slot of the bottom row: X of the load, Q of C and L, the line
// impedance, the C of the LC pairs; 0 for the resistors (no bottom row).
int BottomSlot(int16_t type) {
  if (type >= Empty && type <= ShuntInductor) return 2;
  if (type >= SeriesLine && type <= SeriesParallelLC) return 3;
  return 0;
}

int16_t TypeOf(const Session& session, int stage) {
  return stage == 0 ? int16_t{Empty} : session.ElementType[stage];
}

double StepFactor(const Session& session, double size, bool withStepSize) {
  return (withStepSize ? session.TuneStepPercent : 1.0) * size / session.ChartZoom;
}

double Stepped(double value, int16_t mode, float base, double f, StepDirection direction) {
  const bool up = direction == StepDirection::Up;
  if (mode == 1) return up ? value + base * f : value - base * f;
  if (mode == 0) return up ? value * (1 + f) : value / (1 + f);
  return value;
}

}  // namespace

TuningPanel PanelOf(const Session& session, int stage) {
  const auto& v = session.Value[stage];
  switch (TypeOf(session, stage)) {
    case SeriesCapacitor: case ShuntCapacitor:
      return {"C enter", FormatCapacitance(v[1]), "Q enter", FormatGeneral(v[2])};
    case SeriesInductor: case ShuntInductor:
      return {"L enter", FormatInductance(v[1]), "Q enter", FormatGeneral(v[2])};
    case SeriesLine: case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub:
    case ShuntOpenStub:
      return {"Len enter", FormatGeneral(v[1]), "Z enter", FormatGeneral(v[3])};
    case ShuntSeriesLC: case SeriesParallelLC:
      return {"L enter", FormatInductance(v[1]), "C enter", FormatCapacitance(v[3])};
    case SeriesResistor: case ShuntResistor:
      return {"R enter", FormatGeneral(v[1]), "", "", false};
    // The cable steps its length in metres, the transformer its ratio; their
    // other figures come from the catalogue or the part's own numbers.
    case CoaxialCable: return {"Len enter", FormatGeneral(v[1]), "", "", false};
    case Transformer: return {"N enter", FormatGeneral(v[1]), "", "", false};
    default:  // the load, and an empty stage
      return {"R enter", FormatGeneral(v[1]), "X enter", FormatGeneral(v[2])};
  }
}

TuningPanel SelectPart(Session& session, int cell) {
  session.SelectedStage = static_cast<int16_t>(cell);
  return PanelOf(session, cell);
}

TuningPanel StepTopValue(Session& session, const std::string& typed, StepDirection direction,
                         double size) {
  const int s = session.SelectedStage;
  double& value = session.Value[s][1];
  value = ParseValue(typed);
  value = Stepped(value, session.TopStepMode[s], session.TopStepBase[s],
                  StepFactor(session, size, true), direction);
  return PanelOf(session, s);
}

TuningPanel StepBottomValue(Session& session, const std::string& typed, StepDirection direction,
                            double size) {
  const int s = session.SelectedStage;
  const int16_t type = TypeOf(session, s);
  const int slot = BottomSlot(type);
  if (slot != 0) {
    double& value = session.Value[s][slot];
    value = ParseValue(typed);
    // Only the load's X follows the step-size setting: Q, line impedance and
    // the LC pairs' C always step by whole percents.
    value = Stepped(value, session.BottomStepMode[s], session.BottomStepBase[s],
                    StepFactor(session, size, type == Empty), direction);
  }
  return PanelOf(session, s);
}

Entered EnterTopValue(Session& session, Dialogs& dialogs, const std::string& typed) {
  const int s = session.SelectedStage;
  session.Value[s][1] = ParseValue(typed);
  Entered entered = Entered::Value;
  if (s == 0 && session.Value[0][1] <= 0) {
    dialogs.Message(
        "You have set the real value for the antenna to zero or less;\r\n"
        "a default value of 50 ohms has been substituted for that value.");
    session.Value[0][1] = 50;
    session.Value[0][2] = session.Value[0][3] = session.Value[0][4] = 0;
    entered = Entered::LoadReset;
  }
  if (session.Value[s][1] == 0) {
    ClearPart(session);
    return Entered::PartCleared;
  }
  return entered;
}

Entered EnterBottomValue(Session& session, const std::string& typed) {
  const int s = session.SelectedStage;
  const int16_t type = TypeOf(session, s);
  const int slot = BottomSlot(type);
  if (slot == 0) return Entered::Value;
  session.Value[s][slot] = ParseValue(typed);
  // A load may have no reactance; a part without its second value is removed.
  if (type != Empty && session.Value[s][slot] == 0) {
    ClearPart(session);
    return Entered::PartCleared;
  }
  return Entered::Value;
}

void ClearPart(Session& session) {
  const int s = session.SelectedStage;
  if (s == 0) return;  // the load is never removed
  // A cable keeps its k2 in the fifth slot, which goes with it.
  const int lastSlot = session.ElementType[s] == CoaxialCable ? 5 : 4;
  session.ElementType[s] = Empty;
  for (int k = 2; k <= lastSlot; ++k) session.Value[s][k] = 0;
}

void SetFineSteps(Session& session, bool fine) { session.TuneStepPercent = fine ? 0.01f : 1.0f; }

bool LoadStepSize(Session& session) {
  const bool fine = session.TuneStepPercent != 1.0f;
  SetFineSteps(session, fine);
  return fine;
}

void ChooseTopStepMode(Session& session, bool arithmetic, const std::string& typed) {
  const int s = session.SelectedStage;
  session.TopStepMode[s] = arithmetic ? 1 : 0;
  if (arithmetic) session.Value[s][1] = ParseValue(typed);
  session.TopStepBase[s] = static_cast<float>(session.Value[s][1]);
}

void ChooseBottomStepMode(Session& session, bool arithmetic, const std::string& typed) {
  const int s = session.SelectedStage;
  const int16_t type = TypeOf(session, s);
  session.BottomStepMode[s] = arithmetic ? 1 : 0;
  const int slot = type == Empty ? 2 : (type >= SeriesLine && type <= SeriesParallelLC) ? 3 : 0;
  if (slot == 0) return;
  if (arithmetic) {
    session.Value[s][slot] = ParseValue(typed);
  } else if (type != Empty && type != ShuntSeriesLC && type != SeriesParallelLC) {
    return;  // geometric mode keeps a base only for the load and the LC pairs
  }
  session.BottomStepBase[s] = static_cast<float>(session.Value[s][slot]);
}

}  // namespace kalvex
