#include "files/touchstone_words.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <numbers>

#include "files/text_file.h"

namespace kalvex::touchstone {

std::optional<double> Number(std::string_view word) {
  double value = 0;
  const char* end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

std::string Quoted(std::string_view line) {
  constexpr std::size_t kShown = 80;
  return PrintableText(line.substr(0, kShown)) + (line.size() > kShown ? "..." : "");
}

std::optional<double> HertzPerUnit(std::string_view lowerWord) {
  if (lowerWord == "hz") return 1;
  if (lowerWord == "khz") return 1e3;
  if (lowerWord == "mhz") return 1e6;
  if (lowerWord == "ghz") return 1e9;
  return std::nullopt;
}

bool ReadOptions(WordReader words, Options& options) {
  words.Next();  // "#"
  while (const auto next = words.Next()) {
    const std::string word = Lower(*next);
    if (const auto unit = HertzPerUnit(word)) options.hertzPerUnit = *unit;
    else if (word == "s") options.parameter = Parameter::S;
    else if (word == "z") options.parameter = Parameter::Z;
    else if (word == "y") options.parameter = Parameter::Y;
    else if (word == "ma") options.format = Format::MA;
    else if (word == "db") options.format = Format::DB;
    else if (word == "ri") options.format = Format::RI;
    else if (const auto reference = word == "r" ? words.Next() : std::nullopt;
             reference && Number(*reference).value_or(0) > 0) {
      options.reference = *Number(*reference);
    } else {
      return false;
    }
  }
  return true;
}

std::complex<double> ComplexOf(Format format, double a, double b) {
  constexpr double kDegree = std::numbers::pi / 180;
  switch (format) {
    case Format::RI: return {a, b};
    case Format::MA: return std::polar(a, b * kDegree);
    case Format::DB: return std::polar(std::pow(10.0, a / 20), b * kDegree);
  }
  return {a, b};
}

}  // namespace kalvex::touchstone
