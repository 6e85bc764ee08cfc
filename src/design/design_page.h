#pragma once

#include <QPushButton>

#include "design/schematic.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "platform/page.h"

namespace kalvex {

// The Design page: the schematic of the network over the parts library, and
// the "End" button. Its close box saves the last session and ends the program.
class DesignPage : public Page {
  Q_OBJECT

 public:
  DesignPage(Session& session, Dialogs& dialogs, float coilArcRadius);

  QPushButton* cmdExit;

 protected:
  void OnUserClose() override;

 private:
  Session& session_;
  Dialogs& dialogs_;
  float coilArcRadius_;
  StagePositions stageX_{};
};

}  // namespace kalvex
