#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/dialogs.h"

namespace kalvex::fuzz {

// The readers take file names: each input is written to one file of this
// process, which the reader then opens; `type` is its name's ending, for the
// readers that choose by it.
inline std::string InputFile(const uint8_t* data, size_t size, const std::string& type = "") {
  const std::string path = "/tmp/kalvex-fuzz-" + std::to_string(::getpid()) + type;
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return path;
  std::fwrite(data, 1, size, file);
  std::fclose(file);
  return path;
}

// Nobody answers: every message is taken as OK, every chooser cancelled.
class SilentDialogs : public Dialogs {
 public:
  MessageAnswer Message(const std::string&, const std::string&, MessageButtons,
                        MessageIcon) override {
    return MessageAnswer::Ok;
  }
  std::string ChooseOpenFile(const std::string&, const std::string&, const std::string&) override {
    return "";
  }
  std::string ChooseSaveFile(const std::string&, const std::string&, const std::string&) override {
    return "";
  }
  std::unique_ptr<PrintJob> StartPrint(PageSize, std::string& error) override {
    error = "no printer";
    return nullptr;
  }
  void Beep() override {}
  void Pause(double) override {}
  std::string LocalDateTime() override { return "2026-11-23 12:00:00"; }
};

// Stops the run as a finding when `text` carries a number that is not finite.
inline void RequireFiniteNumbers(const std::string& text) {
  if (text.find("inf") != std::string::npos || text.find("nan") != std::string::npos) {
    __builtin_trap();
  }
}

}  // namespace kalvex::fuzz
