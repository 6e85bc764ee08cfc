#pragma once

#include <QPushButton>

#include "model/session.h"
#include "platform/dialogs.h"
#include "platform/page.h"

namespace kalvex {

inline constexpr double kAnalysisPageWidth = 12000;
inline constexpr double kAnalysisPageHeight = 9000;

// The Analysis page, for now its frame: the caption, the way back to the
// Design page and the exit dialog. Its close box saves the last session and
// ends the program.
class AnalysisPage : public Page {
  Q_OBJECT

 public:
  AnalysisPage(Session& session, Dialogs& dialogs);

  QPushButton* cmdDesign;
  QPushButton* cmdExit;

 protected:
  void OnUserClose() override;

 private:
  Session& session_;
  Dialogs& dialogs_;
};

}  // namespace kalvex
