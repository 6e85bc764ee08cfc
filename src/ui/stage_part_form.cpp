#include "ui/stage_part_form.h"

#include <string>
#include <vector>

#include "design/feed_part_limits.h"

namespace kalvex {

void PutFeedPart(Session& session, Dialogs& dialogs, int stage, int16_t type, const StageValues& entered) {
  std::vector<std::string> resets;
  const StageValues values = FeedPartValues(type, entered, resets);
  for (const std::string& reset : resets) dialogs.Message(reset);
  session.ElementType[stage] = type;
  for (int k = 1; k <= kValueSlots; ++k) session.Value[stage][k] = values[k];
}

}  // namespace kalvex
