#include "files/safe_write.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <random>

#include "files/text_file.h"

namespace kalvex {
namespace {

std::string Failure(const std::filesystem::path& path, const std::string& reason) {
  return "cannot write " + PrintableText(path.string()) + ": " + reason;
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

// Temporary files are named ".NAME.kalvex-PID-XXXXXX" beside the target, so
// that a writer can tell which writer left one.
std::string TemporaryPrefix(const std::filesystem::path& target) {
  return "." + target.filename().string() + ".kalvex-";
}

// Removes the temporaries that writers of `target` killed before they could
// clean up left beside it: those whose process is no longer running.
void RemoveAbandonedTemporaries(const std::filesystem::path& folder,
                                const std::filesystem::path& target) {
  const std::string prefix = TemporaryPrefix(target);
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!name.starts_with(prefix)) continue;
    pid_t pid = 0;
    const char* digits = name.data() + prefix.size();
    const auto [stop, failed] = std::from_chars(digits, name.data() + name.size(), pid);
    if (failed != std::errc() || stop == digits || *stop != '-' || pid <= 0) continue;
    if (::kill(pid, 0) != 0 && errno == ESRCH) ::unlink(entry->path().c_str());
  }
}

// An unnamed file in `folder` (O_TMPFILE), which vanishes with a writer
// killed before it is named; -1 where the file system has none.
int OpenUnnamedFile(const std::filesystem::path& folder, mode_t mode) {
#ifdef O_TMPFILE
  return ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
#else
  return -1;
#endif
}

// Gives the unnamed file `fd` a temporary name in `folder`; false when the
// system cannot link it (no /proc, say).
bool NameUnnamedFile(int fd, const std::filesystem::path& folder, const std::string& prefix,
                     std::string& temporary) {
  const std::string source = "/proc/self/fd/" + std::to_string(fd);
  for (unsigned attempt = 0; attempt < 16; ++attempt) {
    temporary = (folder / (prefix + std::to_string(::getpid()) + "-" +
                           std::to_string(std::random_device{}())))
                    .string();
    if (::linkat(AT_FDCWD, source.c_str(), AT_FDCWD, temporary.c_str(), AT_SYMLINK_FOLLOW) == 0) {
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

std::string WriteByRenaming(const std::filesystem::path& target, std::string_view contents,
                            const struct stat* existing) {
  const std::filesystem::path folder =
      target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
  RemoveAbandonedTemporaries(folder, target);
  const std::string prefix = TemporaryPrefix(target);
  const mode_t mode = existing != nullptr ? existing->st_mode & 07777 : NewFileMode();
  std::string temporary;
  int fd = OpenUnnamedFile(folder, mode);
  const bool unnamed = fd >= 0;
  if (!unnamed) {
    temporary = (folder / (prefix + std::to_string(::getpid()) + "-XXXXXX")).string();
    fd = ::mkstemp(temporary.data());
    if (fd < 0) return Failure(target, SystemReason());
  }
  std::string reason;
  if (!WriteAll(fd, contents) || ::fchmod(fd, mode) != 0 || ::fsync(fd) != 0) {
    reason = SystemReason();
  }
  // The unnamed file gets its name only once it is whole.
  if (reason.empty() && unnamed && !NameUnnamedFile(fd, folder, prefix, temporary)) {
    reason = SystemReason();
  }
  if (::close(fd) != 0 && reason.empty()) reason = SystemReason();
  if (reason.empty() && ::rename(temporary.c_str(), target.c_str()) != 0) reason = SystemReason();
  if (!reason.empty()) {
    if (!temporary.empty()) ::unlink(temporary.c_str());
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
