#pragma once

#include <QWidget>

#include "platform/dialogs.h"

namespace kalvex {

// Dialogs on the desktop: Qt message boxes and file choosers, the system bell,
// a pause that keeps the windows painting, and the local clock.
class QtDialogs : public Dialogs {
 public:
  MessageAnswer Message(const std::string& text, const std::string& title,
                        MessageButtons buttons, MessageIcon icon) override;
  std::string ChooseOpenFile(const std::string& title, const std::string& filter,
                             const std::string& startName) override;
  std::string ChooseSaveFile(const std::string& title, const std::string& filter,
                             const std::string& startName) override;
  std::unique_ptr<PrintJob> StartPrint(PageSize page, std::string& error) override;
  void Beep() override;
  void Pause(double seconds) override;
  std::string LocalDateTime() override;
};

// "Kalvex files (*.SSF)|*.SSF" as a Qt chooser filter: "Kalvex files (*.SSF)";
// several filters are joined by ";;".
QString QtFileFilter(const std::string& filter);

}  // namespace kalvex
