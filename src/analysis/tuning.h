#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// What the tuning panel shows for the selected part: the captions of its two
// enter buttons and the texts of its two boxes. Parts with one value (the
// resistors) have no bottom row.
struct TuningPanel {
  std::string topCaption;
  std::string topText;
  std::string bottomCaption;
  std::string bottomText;
  bool bottomRow = true;
};
TuningPanel PanelOf(const Session& session, int stage);

// Whether the tuning panel opens for a stage: a part with a value to step.
// A two-port block is what its file measured, with nothing to tune.
inline bool IsTunable(int16_t type) { return IsPart(type) && type != TwoPort; }

// SelectPart: selects the cell (0 the load, 1..5 a stage) and fills the panel.
TuningPanel SelectPart(Session& session, int cell);

enum class StepDirection { Down, Up };
// The step buttons' sizes: "<" ">" 1 %, "<<" ">>" 10 % (before the step-size
// setting and the zoom).
inline constexpr double kSmallStep = 0.01;
inline constexpr double kLargeStep = 0.1;

// A step of the selected part's top value (C, L, R, length or the load's R),
// starting from what is typed in its box: geometric (× or ÷ 1 + f) or
// arithmetic from the stage's base. f is the step size × the step-size setting
// ÷ the chart zoom. Returns the panel's new texts.
TuningPanel StepTopValue(Session& session, const std::string& typed, StepDirection direction,
                         double size);
// The same for the bottom value (Q, line impedance, the LC pairs' C, the
// load's X); only the load's X follows the step-size setting.
TuningPanel StepBottomValue(Session& session, const std::string& typed, StepDirection direction,
                            double size);

// What an entry did to the selected part.
enum class Entered {
  Value,       // stored; the panel shows the new texts
  LoadReset,   // a load resistance of 0 or less became 50 + j0; the panel hides
  PartCleared  // a zero removed the part; the panel hides
};
Entered EnterTopValue(Session& session, Dialogs& dialogs, const std::string& typed);
Entered EnterBottomValue(Session& session, const std::string& typed);

// Removes the selected part: its stage becomes empty.
void ClearPart(Session& session);

// The step-size setting: coarse (1 %, 10 %) or fine (.01 %, .1 %).
void SetFineSteps(Session& session, bool fine);
// The page's load keeps coarse steps only when they were chosen before, so the
// first visit starts fine. Returns true for fine steps.
bool LoadStepSize(Session& session);

// The stepping modes of the (hidden) mode frames: arithmetic steps add or take
// the step from the value captured when the mode was chosen.
void ChooseTopStepMode(Session& session, bool arithmetic, const std::string& typed);
void ChooseBottomStepMode(Session& session, bool arithmetic, const std::string& typed);

}  // namespace kalvex
