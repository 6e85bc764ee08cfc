#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kalvex {

// Writes `contents` as the whole of the file at `path`, the one way every file
// of the program is written, so that a failure or a kill never leaves half a
// file and two writers never mix:
// - a regular file (or a new one) is written to a temporary file beside it,
//   every write checked, flushed to disk and renamed over it, keeping the old
//   file's permissions; on a failure the temporary file is removed and the old
//   file stays as it was. The temporary is unnamed (O_TMPFILE) until it is
//   whole, where the file system allows; a named one carries the writer's
//   process id, and each write removes those of writers no longer running,
//   so a writer killed at any moment leaves nothing behind for long;
// - a symbolic link is written through to the file it names, and stays a link;
// - a device or a FIFO is written to directly;
// - a folder, or a file that nobody may write, is refused.
// Returns "" when the file was written, else "cannot write PATH: reason".
std::string WriteFileSafely(const std::filesystem::path& path, std::string_view contents);

}  // namespace kalvex
