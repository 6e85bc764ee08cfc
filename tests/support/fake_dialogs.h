#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/display_list.h"

namespace kalvex::testing {

// Dialogs with scripted answers: records every message and answers the file
// choosers and message boxes from queues (empty queue: "" and OK).
class FakeDialogs : public Dialogs {
 public:
  struct Shown {
    std::string text;
    std::string title;
    MessageButtons buttons;
  };

  MessageAnswer Message(const std::string& text, const std::string& title,
                        MessageButtons buttons, MessageIcon) override {
    messages.push_back({text, title, buttons});
    return Pop(answers, MessageAnswer::Ok);
  }
  std::string ChooseOpenFile(const std::string& title, const std::string&, const std::string&) override {
    chooserTitles.push_back(title);
    return Pop(fileNames, std::string());
  }
  std::string ChooseSaveFile(const std::string& title, const std::string& filter,
                             const std::string& folder) override {
    return ChooseOpenFile(title, filter, folder);
  }
  // A print job drawn into `printed`, or none when `printerError` is set.
  std::unique_ptr<PrintJob> StartPrint(PageSize page, std::string& error) override {
    printedPage = page;
    error = printerError;
    return printerError.empty() ? std::make_unique<Job>(printed) : nullptr;
  }
  void Beep() override { ++beeps; }
  void Pause(double) override {}
  std::string LocalDateTime() override { return "2026-11-22 12:00:00"; }

  std::vector<std::string> MessageTexts() const {
    std::vector<std::string> texts;
    for (const Shown& shown : messages) texts.push_back(shown.text);
    return texts;
  }

  // The messages a case expects: none for nullptr, else that one alone.
  static std::vector<std::string> Only(const char* message) {
    return message == nullptr ? std::vector<std::string>{} : std::vector<std::string>{message};
  }

  std::string printerError;
  DisplayList printed;
  PageSize printedPage;
  std::deque<MessageAnswer> answers;
  std::deque<std::string> fileNames;
  std::vector<Shown> messages;
  std::vector<std::string> chooserTitles;
  int beeps = 0;

 private:
  class Job : public PrintJob {
   public:
    explicit Job(DisplayList& page) : page_(page) {}
    Canvas& Page() override { return page_; }
    std::string Finish() override { return ""; }

   private:
    DisplayList& page_;
  };

  template <typename T>
  static T Pop(std::deque<T>& queue, T otherwise) {
    if (queue.empty()) return otherwise;
    T front = queue.front();
    queue.pop_front();
    return front;
  }
};

}  // namespace kalvex::testing
