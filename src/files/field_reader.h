#pragma once

#include <optional>
#include <string_view>

#include "files/line_reader.h"
#include "model/numeric_prefix.h"

namespace kalvex {

// Reads the fields of a session file by position. Empty lines and lines that
// begin with "*" are passed over; a field is the text after the first ":" of a
// line, or the whole line when it has none. Labels are never checked.
class FieldReader {
 public:
  explicit FieldReader(std::string_view contents) : lines_(contents) {}

  // The next field, or nothing at the end of the file.
  std::optional<std::string_view> Next();

 private:
  LineReader lines_;
};

// The leading number of a field, with spaces and tabs anywhere ignored, so that
// " 1 000 " reads as 1000 and a field without a number reads as 0.
NumericPrefix FieldNumber(std::string_view field);

}  // namespace kalvex
