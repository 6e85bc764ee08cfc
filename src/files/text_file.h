#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kalvex {

// The whole contents of a regular file, or nothing when it cannot be opened or
// read (missing, a folder, a device, no permission, an I/O error) or holds more
// than any file the program reads (64 MB, counted as it arrives), so that a
// wrong file is refused rather than read whole. On a failure `failure`, when
// given, says "cannot read PATH: reason".
std::optional<std::string> ReadTextFile(const std::filesystem::path& path,
                                        std::string* failure = nullptr);

// `text` with every control character (below 0x20, and 0x7F) made a blank: a
// name taken from outside goes into a file, a deck or a message as one line
// that no terminal or program reads as a command.
std::string PrintableText(std::string_view text);

// The name a chosen file is written under: the chosen name with its last path
// component cut at its first "." and `type` appended ("amp.rev2.SSF" with
// ".SSF" gives "amp.SSF"). Empty for an empty (cancelled) choice.
std::string WithFileType(const std::string& chosenName, const std::string& type);

// A name chosen under a filter such as "PNG images (*.png)" with the filter's
// first type appended when the name has none ("export1" gives
// "export1.png"); a name with a type, or an empty one, as it is.
std::string WithFilterType(const std::string& chosenName, const std::string& filterName);

// Files are plain text with lines ended by CR LF.
inline constexpr const char* kLineEnd = "\r\n";

inline constexpr std::uintmax_t kLargestReadFile = 64u << 20;

}  // namespace kalvex
