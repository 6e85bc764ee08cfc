#pragma once

#include <QLabel>
#include <QPushButton>

#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/page.h"

namespace kalvex {

// The first window: it starts the session (last session, defaults), shows the
// pictures of the program and opens the Design page on "Start".
class WelcomePage : public Page {
  Q_OBJECT

 public:
  WelcomePage(Session& session, Dialogs& dialogs);

  QPushButton* cmdStart;
  QLabel* lblVersion;

 protected:
  // Closing the first window also ends the program, with the session saved.
  bool OnUserClose() override;

 private:
  void Start();

  Session& session_;
  Dialogs& dialogs_;
};

}  // namespace kalvex
