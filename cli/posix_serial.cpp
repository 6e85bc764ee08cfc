#include "posix_serial.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kalvex {

PosixSerial::~PosixSerial() {
  if (fd_ >= 0) close(fd_);
}

std::string PosixSerial::Open(const std::string& path) {
  fd_ = open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (fd_ < 0) return std::strerror(errno);
  termios settings{};
  if (tcgetattr(fd_, &settings) != 0) return std::string("not a serial port: ") + std::strerror(errno);
  cfmakeraw(&settings);
  settings.c_cflag |= CLOCAL | CREAD;
  cfsetispeed(&settings, B115200);
  cfsetospeed(&settings, B115200);
  if (tcsetattr(fd_, TCSANOW, &settings) != 0) return std::strerror(errno);
  tcflush(fd_, TCIOFLUSH);
  return "";
}

std::string PosixSerial::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(fd_, bytes.data(), bytes.size());
    if (written < 0 && (errno == EINTR || errno == EAGAIN)) {
      pollfd writable{fd_, POLLOUT, 0};
      poll(&writable, 1, 100);
      continue;
    }
    if (written < 0) return std::strerror(errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return "";
}

PosixSerial::Read PosixSerial::ReadSome(int waitMs) {
  pollfd readable{fd_, POLLIN, 0};
  const int ready = poll(&readable, 1, waitMs);
  if (ready < 0 && errno != EINTR) return {"", std::strerror(errno)};
  if (ready <= 0) return {};
  char buffer[4096];
  const ssize_t count = read(fd_, buffer, sizeof buffer);
  if (count > 0) return {std::string(buffer, static_cast<std::size_t>(count)), ""};
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return {};
  // A hang-up: the device was unplugged, or the other end of the terminal closed.
  return {"", count == 0 || errno == EIO ? "the port closed" : std::strerror(errno)};
}

}  // namespace kalvex
