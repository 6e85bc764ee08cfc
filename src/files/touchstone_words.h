#pragma once

#include <algorithm>
#include <complex>
#include <optional>
#include <string>
#include <string_view>

// The pieces both Touchstone readers (one-port load data and two-port
// blocks) take a file's lines apart with.
namespace kalvex::touchstone {

// Hands out the blank-separated words of a line as views into it, so that a
// line of millions of words is walked without copying it.
class WordReader {
 public:
  explicit WordReader(std::string_view line) : rest_(line) {}

  std::optional<std::string_view> Next() {
    const std::size_t start = rest_.find_first_not_of(" \t");
    if (start == std::string_view::npos) return std::nullopt;
    rest_.remove_prefix(start);
    const std::size_t end = std::min(rest_.find_first_of(" \t"), rest_.size());
    const std::string_view word = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return word;
  }

  // The number of words not yet handed out.
  std::size_t Remaining() {
    std::size_t count = 0;
    while (Next()) ++count;
    return count;
  }

 private:
  std::string_view rest_;
};

// A finite number that is the whole word, or nothing.
std::optional<double> Number(std::string_view word);

std::string Lower(std::string_view text);

// A line of the file in a message: one line, and not the whole of a huge one.
std::string Quoted(std::string_view line);

// Hertz per unit of a frequency unit word ("hz", "khz", "mhz", "ghz"; lower
// case), or nothing for any other word.
std::optional<double> HertzPerUnit(std::string_view lowerWord);

enum class Parameter { S, Z, Y };
enum class Format { MA, DB, RI };

// What the option line "# <unit> <S|Z|Y> <MA|DB|RI> R <n>" says, with the
// defaults of a file that leaves a word (or the whole line) out.
struct Options {
  double hertzPerUnit = 1e9;
  Parameter parameter = Parameter::S;
  Format format = Format::MA;
  double reference = 50;
  bool version2 = false;
};

// The option line's words after "#"; false when one is not understood.
bool ReadOptions(WordReader words, Options& options);

// One value of a data line from its two numbers in the file's format.
std::complex<double> ComplexOf(Format format, double a, double b);

}  // namespace kalvex::touchstone
