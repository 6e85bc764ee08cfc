#include "files/defaults_file.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "files/safe_write.h"
#include "files/text_file.h"
#include "model/number_text.h"
#include "model/trim.h"

namespace kalvex {
namespace {

constexpr float kDefaultAspect = 0.75f;
constexpr float kDefaultCapacitorQ = 1000;
constexpr float kDefaultInductorQ = 200;

// A whole item of the file as a single, or nothing when it is not a number.
std::optional<float> SingleOf(std::string_view item) {
  if (item.starts_with('+')) item.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), value);
  if (error != std::errc() || end != item.data() + item.size() ||
      !(std::fabs(value) <= std::numeric_limits<float>::max())) {
    return std::nullopt;
  }
  return static_cast<float>(value);
}

// The first three numbers of the text; nothing when any of them fails.
std::optional<std::array<float, 3>> ThreeNumbers(std::string_view text) {
  std::array<float, 3> numbers{};
  std::size_t found = 0;
  while (found < numbers.size() && !text.empty()) {
    const std::size_t separator = text.find_first_of(",\r\n");
    const std::string_view item = Trim(text.substr(0, separator), " \t");
    text = separator == std::string_view::npos ? std::string_view{} : text.substr(separator + 1);
    if (item.empty()) continue;  // line ends and blank lines between numbers
    const std::optional<float> number = SingleOf(item);
    if (!number) return std::nullopt;
    numbers[found++] = *number;
  }
  if (found < numbers.size()) return std::nullopt;
  return numbers;
}

}  // namespace

void ReadDefaults(Session& session, const std::filesystem::path& path) {
  session.ChartAspect = kDefaultAspect;
  session.DefaultCapacitorQ = kDefaultCapacitorQ;
  session.DefaultInductorQ = kDefaultInductorQ;
  const std::optional<std::string> contents = ReadTextFile(path);
  if (!contents) return;
  if (const auto numbers = ThreeNumbers(*contents)) {
    session.ChartAspect = (*numbers)[0];
    session.DefaultCapacitorQ = (*numbers)[1];
    session.DefaultInductorQ = (*numbers)[2];
  }
}

bool WriteDefaults(const Session& session, const std::filesystem::path& path) {
  return WriteFileSafely(path, PlainNumberText(session.ChartAspect, kSingleDigits) + kLineEnd +
                                  PlainNumberText(session.DefaultCapacitorQ, kSingleDigits) +
                                  kLineEnd +
                                  PlainNumberText(session.DefaultInductorQ, kSingleDigits) +
                                  kLineEnd)
      .empty();
}

}  // namespace kalvex
