#pragma once

#include <ostream>

#include "platform/dialogs.h"

namespace kalvex {

// Dialogs for the command line: messages go to the given stream (standard
// error), nobody is there to choose a file, and every question is answered OK.
class ConsoleDialogs : public Dialogs {
 public:
  explicit ConsoleDialogs(std::ostream& messages) : messages_(messages) {}

  MessageAnswer Message(const std::string& text, const std::string& title,
                        MessageButtons buttons, MessageIcon icon) override;
  std::string ChooseOpenFile(const std::string&, const std::string&, const std::string&) override {
    return "";
  }
  std::string ChooseSaveFile(const std::string&, const std::string&, const std::string&) override {
    return "";
  }
  // The command line prints to files (kalvex-cli print), never to a printer.
  std::unique_ptr<PrintJob> StartPrint(PageSize, std::string& error) override {
    error = "no printer on the command line: use kalvex-cli print";
    return nullptr;
  }
  void Beep() override {}
  void Diagnostic(const std::string& text) override { messages_ << text << '\n'; }
  void Pause(double seconds) override;
  std::string LocalDateTime() override;

 private:
  std::ostream& messages_;
};

}  // namespace kalvex
