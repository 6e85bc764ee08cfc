#include "model/options.h"

#include "model/format.h"
#include "model/number_text.h"

namespace kalvex {

std::string OpenOptions(Session& session) {
  if (session.VelocityFactor == 0) session.VelocityFactor = 1;
  if (session.VelocityFactor < 0.0001) session.VelocityFactor = 0.0001;
  if (session.VelocityFactor > 1) session.VelocityFactor = 1;
  return PrintNumberText(session.VelocityFactor, 15);
}

void ReturnFromOptions(Session& session, Dialogs& dialogs, const std::string& velocityText) {
  session.VelocityFactor = ParseValue(velocityText);
  if (session.VelocityFactor <= 0) {
    session.VelocityFactor = 0.0001;
    dialogs.Message("Velocity factor has been reset to the minimum allowed.");
  }
  if (session.VelocityFactor > 1) {
    session.VelocityFactor = 1;
    dialogs.Message("Velocity factor has been reset to the maximum allowed.");
  }
}

}  // namespace kalvex
