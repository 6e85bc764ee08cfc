#include "files/safe_write.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kalvex {
namespace {

std::string Failure(const std::filesystem::path& path, const std::string& reason) {
  return "cannot write " + path.string() + ": " + reason;
}

std::string SystemReason() { return std::strerror(errno); }

// Writes all of `contents` to `fd`, going on after short writes and signals.
bool WriteAll(int fd, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = ::write(fd, contents.data(), contents.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// The mode a new file gets: read and write for all, less the umask.
mode_t NewFileMode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

// Devices and FIFOs are not replaced but written to as they are.
std::string WriteInPlace(const std::filesystem::path& path, std::string_view contents) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (fd < 0) return Failure(path, SystemReason());
  const bool written = WriteAll(fd, contents);
  const std::string reason = written ? "" : SystemReason();
  if (::close(fd) != 0 && written) return Failure(path, SystemReason());
  return written ? "" : Failure(path, reason);
}

std::string WriteByRenaming(const std::filesystem::path& target, std::string_view contents,
                            const struct stat* existing) {
  const std::filesystem::path folder =
      target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
  std::string temporary = (folder / ("." + target.filename().string() + ".kalvex-XXXXXX")).string();
  const int fd = ::mkstemp(temporary.data());
  if (fd < 0) return Failure(target, SystemReason());
  std::string reason;
  const mode_t mode = existing != nullptr ? existing->st_mode & 07777 : NewFileMode();
  if (!WriteAll(fd, contents) || ::fchmod(fd, mode) != 0 || ::fsync(fd) != 0) {
    reason = SystemReason();
  }
  if (::close(fd) != 0 && reason.empty()) reason = SystemReason();
  if (reason.empty() && ::rename(temporary.c_str(), target.c_str()) != 0) reason = SystemReason();
  if (!reason.empty()) {
    ::unlink(temporary.c_str());
    return Failure(target, reason);
  }
  // The rename itself reaches the disk with the folder.
  const int folderFd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folderFd >= 0) {
    ::fsync(folderFd);
    ::close(folderFd);
  }
  return "";
}

}  // namespace

std::string WriteFileSafely(const std::filesystem::path& path, std::string_view contents) {
  if (path.empty()) return Failure(path, "no file name");
  std::error_code error;
  // A link is followed to the file it names, which is what gets replaced.
  std::filesystem::path target = path;
  if (std::filesystem::is_symlink(path, error)) {
    target = std::filesystem::weakly_canonical(path, error);
    if (error) return Failure(path, error.message());
  }
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) {
    if (errno != ENOENT) return Failure(path, SystemReason());
    return WriteByRenaming(target, contents, nullptr);
  }
  if (S_ISDIR(status.st_mode)) return Failure(path, "it is a folder");
  if (!S_ISREG(status.st_mode)) return WriteInPlace(target, contents);
  if ((status.st_mode & 0222) == 0) return Failure(path, "the file is read-only");
  return WriteByRenaming(target, contents, &status);
}

}  // namespace kalvex
