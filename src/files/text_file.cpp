#include "files/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace kalvex {
namespace {

// Closes the descriptor when the read ends, whichever way it ends.
class OpenFile {
 public:
  explicit OpenFile(const std::filesystem::path& path)
      : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK)) {}
  ~OpenFile() {
    if (fd_ >= 0) ::close(fd_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  int fd() const { return fd_; }

 private:
  int fd_;
};

// Reads to the end of `fd`, but never more than kLargestReadFile bytes: what
// the file claims to hold is not trusted, only what arrives is counted.
// Returns the reason when the read fails or the file is too large.
std::string ReadAll(int fd, std::uintmax_t sizeHint, std::string& contents) {
  contents.reserve(static_cast<std::size_t>(std::min(sizeHint, kLargestReadFile)));
  char buffer[1 << 16];
  while (true) {
    const ssize_t got = ::read(fd, buffer, sizeof buffer);
    if (got == 0) return "";
    if (got < 0) {
      if (errno == EINTR) continue;
      return std::strerror(errno);
    }
    if (contents.size() + static_cast<std::size_t>(got) > kLargestReadFile) {
      return "it holds more than 64 MB";
    }
    contents.append(buffer, static_cast<std::size_t>(got));
  }
}

}  // namespace

std::optional<std::string> ReadTextFile(const std::filesystem::path& path, std::string* failure) {
  auto fail = [&](const std::string& reason) -> std::optional<std::string> {
    if (failure != nullptr) *failure = "cannot read " + PrintableText(path.string()) + ": " + reason;
    return std::nullopt;
  };
  if (path.empty()) return fail("no file name");
  const OpenFile file(path);
  if (file.fd() < 0) return fail(std::strerror(errno));
  struct stat status {};
  if (::fstat(file.fd(), &status) != 0) return fail(std::strerror(errno));
  if (S_ISDIR(status.st_mode)) return fail("it is a folder");
  if (!S_ISREG(status.st_mode)) return fail("it is not a regular file");
  // What the file claims refuses it early; what arrives is counted all the same.
  if (static_cast<std::uintmax_t>(status.st_size) > kLargestReadFile) return fail("it holds more than 64 MB");
  std::string contents;
  try {
    if (const std::string reason = ReadAll(file.fd(), static_cast<std::uintmax_t>(status.st_size), contents);
        !reason.empty()) {
      return fail(reason);
    }
  } catch (const std::bad_alloc&) {
    return fail("not enough memory");
  }
  return contents;
}

std::string PrintableText(std::string_view text) {
  std::string printable(text);
  for (char& c : printable) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x20 || code == 0x7F) c = ' ';
  }
  return printable;
}

std::string WithFilterType(const std::string& chosenName, const std::string& filterName) {
  const std::size_t componentStart = chosenName.find_last_of('/') + 1;  // npos + 1 == 0
  const std::size_t pattern = filterName.find("(*.");
  if (chosenName.empty() || chosenName.find('.', componentStart) != std::string::npos ||
      pattern == std::string::npos) {
    return chosenName;
  }
  const std::size_t typeStart = pattern + 2;
  const std::size_t typeEnd = filterName.find_first_of(" ;)", typeStart);
  return chosenName + filterName.substr(typeStart, typeEnd - typeStart);
}

std::string WithFileType(const std::string& chosenName, const std::string& type) {
  if (chosenName.empty()) return "";
  const std::size_t componentStart = chosenName.find_last_of("\\/") + 1;  // npos + 1 == 0
  const std::size_t dot = chosenName.find('.', componentStart);
  return chosenName.substr(0, dot) + type;
}

}  // namespace kalvex
