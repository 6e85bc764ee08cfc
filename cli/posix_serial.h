#pragma once

#include <string>
#include <string_view>

namespace kalvex {

// A serial port (a USB CDC device, or a pseudo-terminal) opened raw through
// termios, for the command line, which does without Qt.
class PosixSerial {
 public:
  PosixSerial() = default;
  PosixSerial(const PosixSerial&) = delete;
  PosixSerial& operator=(const PosixSerial&) = delete;
  ~PosixSerial();

  // Opens the port raw at 115200 baud; returns "" or why it cannot.
  std::string Open(const std::string& path);

  // Writes all of `bytes`; returns "" or why it cannot.
  std::string Write(std::string_view bytes);

  struct Read {
    std::string bytes;    // "" when nothing came in time
    std::string failure;  // the port closed or failed
  };
  // What arrives within `waitMs` milliseconds.
  Read ReadSome(int waitMs);

 private:
  int fd_ = -1;
};

}  // namespace kalvex
