#include "files/cable_catalogue.h"

#include <charconv>
#include <system_error>

#include "files/line_reader.h"
#include "files/text_file.h"
#include "model/trim.h"

namespace kalvex {
namespace {

// The fields of a line between its ";", trimmed.
std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> fields;
  for (std::size_t start = 0;;) {
    const std::size_t end = line.find(';', start);
    fields.push_back(Trim(line.substr(start, end - start), " \t"));
    if (end == std::string_view::npos) return fields;
    start = end + 1;
  }
}

// A field that is one plain number and nothing else.
bool ReadNumber(std::string_view field, double& number) {
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  return error == std::errc() && end == field.data() + field.size();
}

bool IsCable(const CatalogueCable& cable) {
  return cable.characteristicZ > 0 && cable.velocityFactor > 0 && cable.velocityFactor <= 1 &&
         cable.k1 >= 0 && cable.k2 >= 0;
}

}  // namespace

CableCatalogue ParseCableCatalogue(std::string_view text) {
  CableCatalogue catalogue;
  LineReader lines(text);
  int number = 0;
  while (const auto line = lines.Next()) {
    ++number;
    const std::string_view content = Trim(*line, " \t");
    if (content.empty() || content.front() == '#') continue;
    const std::vector<std::string_view> fields = Fields(content);
    CatalogueCable cable;
    const bool read = fields.size() >= 5 && !fields[0].empty() &&
                      ReadNumber(fields[1], cable.characteristicZ) &&
                      ReadNumber(fields[2], cable.velocityFactor) && ReadNumber(fields[3], cable.k1) &&
                      ReadNumber(fields[4], cable.k2);
    if (read && IsCable(cable)) {
      cable.name = fields[0];
      catalogue.cables.push_back(std::move(cable));
    } else {
      catalogue.problems.push_back("line " + std::to_string(number) +
                                   " is not \"name; Z0; VF; k1; k2\" with Z0 above 0, VF from "
                                   "above 0 to 1 and k1, k2 not negative");
    }
  }
  return catalogue;
}

std::filesystem::path CableCataloguePath(const std::filesystem::path& programFolder) {
  std::error_code error;
  for (const std::filesystem::path& candidate :
       {programFolder / kCableCatalogueFileName,
        programFolder / ".." / "share" / "kalvex" / kCableCatalogueFileName}) {
    if (std::filesystem::is_regular_file(candidate, error)) return candidate;
  }
  return {};
}

CableCatalogue ReadShippedCatalogue() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  const std::filesystem::path path = CableCataloguePath(self.parent_path());
  if (path.empty()) return {};
  std::string failure;
  const auto text = ReadTextFile(path, &failure);
  if (!text) return {{}, {failure}};
  return ParseCableCatalogue(*text);
}

}  // namespace kalvex
