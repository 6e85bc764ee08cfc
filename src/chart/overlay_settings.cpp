#include "chart/overlay_settings.h"

#include "chart/overlays.h"
#include "model/format.h"
#include "model/number_text.h"

namespace kalvex {
namespace {

struct OverlayRule {
  float Session::*value;
  int16_t Session::*on;
  float minimum;
  float maximum;
  const char* refusal;
};

const OverlayRule& RuleOf(Overlay overlay) {
  static constexpr OverlayRule kQ{&Session::QCircle, &Session::QArcsOn, kMinQCircle, kMaxQCircle,
                                  "Q must be between .1 and 20"};
  static constexpr OverlayRule kVSWR{&Session::VSWRCircle, &Session::VSWRCircleOn,
                                     kMinVSWRCircle, kMaxVSWRCircle,
                                     "VSWR circle radius must be between 1.01 and 20"};
  return overlay == Overlay::QArcs ? kQ : kVSWR;
}

}  // namespace

std::string OverlaySettingText(const Session& session, Overlay overlay) {
  return PlainNumberText(session.*RuleOf(overlay).value, kSingleDigits);
}

bool AcceptOverlaySetting(Session& session, Dialogs& dialogs, Overlay overlay,
                          const std::string& typed) {
  const OverlayRule& rule = RuleOf(overlay);
  float& value = session.*rule.value;
  value = static_cast<float>(ParseValue(typed));
  if (value < rule.minimum || value > rule.maximum) {
    dialogs.Message(rule.refusal);
    return false;
  }
  return true;
}

bool ToggleOverlay(Session& session, Overlay overlay) {
  int16_t& on = session.*RuleOf(overlay).on;
  ToggleSwitch(on);
  return on == 1;
}

bool OverlayOn(const Session& session, Overlay overlay) {
  return session.*RuleOf(overlay).on == 1;
}

void SwitchOnOverlay(Session& session, Overlay overlay) { session.*RuleOf(overlay).on = 1; }

}  // namespace kalvex
