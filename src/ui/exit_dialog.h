#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// "Exit ?": carry on, save the network then exit, or end. Both ways out save
// the last session, show what was saved for two seconds and end the program.
class ExitDialog : public QDialog {
  Q_OBJECT

 public:
  ExitDialog(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

  QPushButton* cmdCancel;
  QPushButton* cmdSave;
  QPushButton* cmdExit;
  QLabel* Label2;

 private:
  void ShowSavedAndEnd(const std::string& message);

  Session& session_;
  Dialogs& dialogs_;
};

// Ends the program after the current event.
void EndProgram();

// A page's close box: the last session is saved, then the program ends.
void SaveSessionAndEnd(const Session& session, Dialogs& dialogs);

}  // namespace kalvex
