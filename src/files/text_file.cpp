#include "files/text_file.h"

#include <fstream>
#include <iterator>
#include <system_error>

namespace kalvex {

std::optional<std::string> ReadTextFile(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  if (std::filesystem::file_size(path, error) > kLargestReadFile || error) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::string contents{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad()) return std::nullopt;
  return contents;
}

std::string WithFileType(const std::string& chosenName, const std::string& type) {
  if (chosenName.empty()) return "";
  const std::size_t componentStart = chosenName.find_last_of("\\/") + 1;  // npos + 1 == 0
  const std::size_t dot = chosenName.find('.', componentStart);
  return chosenName.substr(0, dot) + type;
}

}  // namespace kalvex
