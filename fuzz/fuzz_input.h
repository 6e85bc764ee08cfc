#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/dialogs.h"

namespace kalvex::fuzz {

// The readers take file names: each input is written to one file of this
// process, which the reader then opens.
inline std::string InputFile(const uint8_t* data, size_t size) {
  static const std::string path = "/tmp/kalvex-fuzz-" + std::to_string(::getpid());
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

}  // namespace kalvex::fuzz
