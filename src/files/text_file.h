#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace kalvex {

// The whole contents of a regular file, or nothing when it cannot be opened or
// read (missing, a folder, no permission) or is larger than any file the
// program reads (64 MB), so that a wrong file is refused rather than read whole.
std::optional<std::string> ReadTextFile(const std::filesystem::path& path);

// The name a chosen file is written under: the chosen name with its last path
// component cut at its first "." and `type` appended ("amp.rev2.SSF" with
// ".SSF" gives "amp.SSF"). Empty for an empty (cancelled) choice.
std::string WithFileType(const std::string& chosenName, const std::string& type);

// Files are plain text with lines ended by CR LF.
inline constexpr const char* kLineEnd = "\r\n";

inline constexpr std::uintmax_t kLargestReadFile = 64u << 20;

}  // namespace kalvex
