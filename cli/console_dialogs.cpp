#include "console_dialogs.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace kalvex {

MessageAnswer ConsoleDialogs::Message(const std::string& text, const std::string&,
                                      MessageButtons, MessageIcon) {
  std::string line;
  for (const char c : text) {
    if (c != '\r') line += c;
  }
  messages_ << line << '\n';
  return MessageAnswer::Ok;
}

void ConsoleDialogs::Pause(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

std::string ConsoleDialogs::LocalDateTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  return text;
}

}  // namespace kalvex
