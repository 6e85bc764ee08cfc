#include "files/two_port_file.h"

#include <array>
#include <cmath>
#include <vector>

#include "files/line_reader.h"
#include "files/text_file.h"
#include "files/touchstone_words.h"
#include "model/trim.h"

namespace kalvex {
namespace {

using namespace touchstone;
using Complex = std::complex<double>;

// Which of S12 and S21 a record gives first, or only one of them for both
// (the lower or upper half of a symmetric matrix).
enum class Layout { Order21_12, Order12_21, Symmetric };

class TwoPortParser {
 public:
  explicit TwoPortParser(const std::string& name) : name_(PrintableText(name)) {}

  TwoPortReading Read(std::string_view contents) {
    LineReader lines(contents);
    while (const auto raw = lines.Next()) {
      ++lineNumber_;
      std::string_view line = Trim(raw->substr(0, raw->find('!')), " \t");
      if (line.empty()) continue;
      if (line.front() == '#') {
        if (!optionsSeen_ && !ReadOptions(WordReader(line), options_)) {
          return Refuse("its option line is not understood: " + Quoted(line));
        }
        optionsSeen_ = true;
        continue;
      }
      if (line.front() == '[') {
        if (!Keyword(line)) break;
        if (!problem_.empty()) return Refuse(problem_);
        continue;
      }
      if (referencesWanted_ > 0) {
        if (!References(line)) return Refuse(problem_);
        continue;
      }
      if (!DataLine(line)) break;
      if (!problem_.empty()) return Refuse(problem_);
    }
    if (!problem_.empty()) return Refuse(problem_);
    if (!record_.empty()) return Refuse("its last data record is incomplete");
    if (points_.empty()) return Refuse("it holds no data points");
    return {std::make_shared<const TwoPortTable>(std::move(points_), references_[0]), ""};
  }

 private:
  TwoPortReading Refuse(const std::string& why) const {
    return {nullptr, name_ + " cannot be a two-port block: " + why + "."};
  }

  std::string AtLine() const { return "line " + std::to_string(lineNumber_) + " "; }

  // False at the keyword that ends the network data.
  bool Keyword(std::string_view line) {
    const std::size_t close = line.find(']');
    const std::string keyword = Lower(line.substr(0, close == std::string_view::npos ? line.size() : close + 1));
    const std::string_view rest = close == std::string_view::npos ? "" : line.substr(close + 1);
    const std::string value = Lower(Trim(rest, " \t"));
    options_.version2 = true;
    if (referencesWanted_ > 0) {
      problem_ = AtLine() + "follows a [Reference] that gives fewer impedances than the two ports";
    } else if (keyword == "[number of ports]" && value != "2") {
      problem_ = "it is a " + Quoted(value) + "-port file, and a block has two ports";
    } else if (keyword == "[two-port data order]") {
      if (value == "12_21") layout_ = Layout::Order12_21;
      else if (value == "21_12") layout_ = Layout::Order21_12;
      else problem_ = AtLine() + "gives the data order " + Quoted(value) + ", not 12_21 or 21_12";
    } else if (keyword == "[matrix format]") {
      if (value == "lower" || value == "upper") layout_ = Layout::Symmetric;
      else if (value != "full") problem_ = AtLine() + "gives the matrix format " + Quoted(value);
    } else if (keyword == "[mixed-mode order]") {
      problem_ = "it holds mixed-mode data";
    } else if (keyword == "[reference]") {
      referencesWanted_ = 2;
      References(rest);
    } else if (keyword == "[noise data]" || keyword == "[end]") {
      return false;
    }
    return true;
  }

  // The port impedances of "[Reference]", which may go on over the next lines.
  bool References(std::string_view words) {
    WordReader reader(words);
    while (const auto word = reader.Next()) {
      const std::optional<double> value = Number(*word);
      if (!value || *value <= 0 || referencesWanted_ == 0) {
        problem_ = AtLine() + "gives a port impedance that is not a positive number: " + Quoted(words);
        return false;
      }
      references_[2 - referencesWanted_] = *value;
      --referencesWanted_;
    }
    referencesGiven_ = true;
    return true;
  }

  std::size_t RecordSize() const { return layout_ == Layout::Symmetric ? 7 : 9; }

  // False where version 1 noise data begins.
  bool DataLine(std::string_view line) {
    WordReader words(line);
    while (const auto word = words.Next()) {
      const std::optional<double> value = Number(*word);
      if (!value) {
        problem_ = AtLine() + "holds " + Quoted(*word) + ", which is not a finite number";
        return true;
      }
      if (record_.empty() && *value < 0) {
        problem_ = AtLine() + "gives a negative frequency";
        return true;
      }
      if (record_.empty() && !points_.empty() && *value * options_.hertzPerUnit <= points_.back().frequency) {
        if (!options_.version2) return false;
        problem_ = AtLine() + "goes back to a lower frequency";
        return true;
      }
      record_.push_back(*value);
      if (record_.size() == RecordSize() && !AddRecord()) return true;
    }
    return true;
  }

  bool AddRecord() {
    if (points_.size() == kMaxBlockPoints) {
      problem_ = "it holds more than " + std::to_string(kMaxBlockPoints) + " frequencies";
      return false;
    }
    std::vector<Complex> v;
    for (std::size_t k = 1; k + 1 < record_.size(); k += 2) v.push_back(ComplexOf(options_.format, record_[k], record_[k + 1]));
    std::array<Complex, 4> m{};  // S11 S12 S21 S22
    switch (layout_) {
      case Layout::Order21_12: m = {v[0], v[2], v[1], v[3]}; break;
      case Layout::Order12_21: m = {v[0], v[1], v[2], v[3]}; break;
      case Layout::Symmetric: m = {v[0], v[1], v[1], v[2]}; break;
    }
    const double frequency = record_[0] * options_.hertzPerUnit;
    record_.clear();
    const SMatrix s = AtPortOneReference(m);
    for (const Complex& value : s.s) {
      if (!std::isfinite(value.real()) || !std::isfinite(value.imag())) {
        problem_ = AtLine() + "gives parameters that have no S parameters at its reference";
        return false;
      }
    }
    points_.push_back({frequency, s});
    return true;
  }

  SMatrix AtPortOneReference(const std::array<Complex, 4>& m) {
    if (!referencesGiven_) references_ = {options_.reference, options_.reference};
    const double z0 = references_[0];
    // Version 1 gives Z and Y normalised to the reference; version 2 in ohms and siemens.
    const double scale = options_.version2 ? 1 : options_.reference;
    std::array<Complex, 4> scaled = m;
    switch (options_.parameter) {
      case Parameter::S: return Renormalised({m}, references_, {z0, z0});
      case Parameter::Z:
        for (Complex& z : scaled) z *= scale;
        return SOfImpedances(scaled, z0);
      case Parameter::Y:
        for (Complex& y : scaled) y /= scale;
        return SOfAdmittances(scaled, z0);
    }
    return {m};
  }

  std::string name_;
  Options options_;
  bool optionsSeen_ = false;
  Layout layout_ = Layout::Order21_12;
  std::array<double, 2> references_{50, 50};
  bool referencesGiven_ = false;
  int referencesWanted_ = 0;
  long lineNumber_ = 0;
  std::vector<double> record_;
  std::vector<TwoPortTable::Point> points_;
  std::string problem_;
};

}  // namespace

TwoPortReading ReadTwoPortText(const std::string& name, std::string_view contents) {
  return TwoPortParser(name).Read(contents);
}

TwoPortReading ReadTwoPortFile(const std::string& path) {
  std::string failure;
  const std::optional<std::string> contents = ReadTextFile(path, &failure);
  if (!contents) return {nullptr, PrintableText(failure)};
  return ReadTwoPortText(path, *contents);
}

}  // namespace kalvex
