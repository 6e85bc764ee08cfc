#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace kalvex {

// The whole contents of a regular file, or nothing when it cannot be opened or
// read (missing, a folder, no permission).
std::optional<std::string> ReadTextFile(const std::filesystem::path& path);

// Writes `contents` to a temporary file beside `path` and renames it over
// `path`, so that a failed write leaves the previous file whole. Returns false
// on any failure, after removing the temporary file.
bool WriteTextFileAtomically(const std::filesystem::path& path, const std::string& contents);

// The name a chosen file is written under: the chosen name with its last path
// component cut at its first "." and `type` appended ("amp.rev2.SSF" with
// ".SSF" gives "amp.SSF"). Empty for an empty (cancelled) choice.
std::string WithFileType(const std::string& chosenName, const std::string& type);

// Files are plain text with lines ended by CR LF.
inline constexpr const char* kLineEnd = "\r\n";

}  // namespace kalvex
