#include "files/touchstone.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <complex>
#include <numbers>
#include <optional>
#include <vector>

#include "files/line_reader.h"
#include "files/touchstone_words.h"
#include "files/load_points.h"
#include "files/text_file.h"
#include "model/number_text.h"
#include "model/sweep_indexes.h"
#include "model/trim.h"

namespace kalvex {
namespace {

using namespace touchstone;
using Complex = std::complex<double>;
constexpr int kMaxLoadPoints = kLoadPointCount - 1;
constexpr double kDegree = std::numbers::pi / 180;

struct DataPoint {
  double frequency;
  Complex impedance;
};

// The load R + jX of one data point's parameter.
Complex ImpedanceOf(const Options& options, double a, double b) {
  const Complex value = ComplexOf(options.format, a, b);
  const double r = options.reference;
  switch (options.parameter) {
    case Parameter::S: return r * (1.0 + value) / (1.0 - value);
    // Version 1 gives Z and Y normalised to the reference; version 2 in ohms and siemens.
    case Parameter::Z: return options.version2 ? value : value * r;
    case Parameter::Y: return options.version2 ? 1.0 / value : r / value;
  }
  return value;
}

// The file's type number N of ".sNp", or 0 for any other type.
int PortsOfName(const std::string& name) {
  const std::size_t dot = name.find_last_of('.');
  if (dot == std::string::npos) return 0;
  const std::string type = Lower(std::string_view(name).substr(dot + 1));
  if (type.size() < 3 || type.front() != 's' || type.back() != 'p') return 0;
  int ports = 0;
  const auto [end, error] = std::from_chars(type.data() + 1, type.data() + type.size() - 1, ports);
  return error == std::errc() && end == type.data() + type.size() - 1 ? ports : 0;
}

enum class Outcome { Complete, ParserError, Refused };

struct Reading {
  std::vector<DataPoint> points;
  Outcome outcome = Outcome::Complete;
  std::string refusal;
  std::vector<long> leftOutLines;  // points whose load Kalvex cannot take (IsUsableLoad)
};

std::string LastWord(std::string_view line) {
  WordReader words(line);
  std::string_view last;
  while (const auto word = words.Next()) last = *word;
  return std::string(last);
}

Reading ReadPoints(const std::string& name, const std::string& contents) {
  Reading reading;
  auto refuse = [&reading](std::string why) {
    reading.outcome = Outcome::Refused;
    reading.refusal = std::move(why);
    reading.points.clear();
    return reading;
  };
  Options options;
  LineReader lines(contents);
  long lineNumber = 0;
  while (const auto raw = lines.Next()) {
    ++lineNumber;
    std::string_view line = raw->substr(0, raw->find('!'));
    line = Trim(line, " \t");
    if (line.empty()) continue;
    if (line.front() == '#') {
      if (!ReadOptions(WordReader(line), options)) {
        return refuse("The Touchstone option line of " + name + " is not understood: " + Quoted(line));
      }
      continue;
    }
    if (line.front() == '[') {
      const std::string keyword = Lower(line.substr(0, line.find(']') + 1));
      const std::string value = LastWord(line);
      options.version2 = true;
      if (keyword == "[number of ports]" && value != "1") {
        return refuse(name + " is a " + Quoted(value) + "-port Touchstone file; load data comes from a one-port file (.s1p).");
      }
      if (keyword == "[reference]" && Number(value).value_or(0) > 0) options.reference = *Number(value);
      if (keyword == "[end]") break;
      continue;
    }
    WordReader words(line);
    const auto frequency = Number(words.Next().value_or(""));
    const auto a = Number(words.Next().value_or(""));
    const auto b = Number(words.Next().value_or(""));
    if (const std::size_t more = words.Remaining(); more > 0) {
      if (more % 2 == 0) {
        return refuse(name + " holds more than one port; load data comes from a one-port file (.s1p).");
      }
      reading.outcome = Outcome::ParserError;
      break;
    }
    if (!frequency || !a || !b || std::ssize(reading.points) == kMaxLoadPoints) {
      reading.outcome = Outcome::ParserError;
      break;
    }
    const DataPoint point{*frequency * options.hertzPerUnit, ImpedanceOf(options, *a, *b)};
    if (IsUsableLoad(point.frequency, point.impedance.real(), point.impedance.imag())) {
      reading.points.push_back(point);
    } else {
      reading.leftOutLines.push_back(lineNumber);
    }
  }
  if (reading.points.empty() && reading.outcome == Outcome::Complete) {
    return refuse(reading.leftOutLines.empty()
                      ? name + " holds no data points."
                      : name + " holds no point whose load is a finite impedance with a resistance of 0 or more.");
  }
  return reading;
}

}  // namespace

bool IsTouchstoneName(const std::string& name) { return PortsOfName(name) > 0; }

void ReadTouchstone(Session& session, Dialogs& dialogs, const std::string& name) {
  session.SavedSweepPoints = session.SweepPoints;
  session.SweepPoints = 0;
  const int ports = PortsOfName(name);
  if (ports != 1) {
    dialogs.Message(name + " is a " + std::to_string(ports) +
                    "-port Touchstone file; load data comes from a one-port file (.s1p).");
    return;
  }
  std::string failure;
  const std::optional<std::string> contents = ReadTextFile(name, &failure);
  if (!contents) {
    dialogs.Diagnostic(failure);
    dialogs.Message("Parser error");
    session.FileName.clear();
    return;
  }
  Reading reading = ReadPoints(name, *contents);
  if (reading.outcome == Outcome::Refused) {
    dialogs.Message(reading.refusal);
    return;
  }
  if (!reading.leftOutLines.empty()) dialogs.Message(LeftOutLoadMessage(name, reading.leftOutLines));
  std::stable_sort(reading.points.begin(), reading.points.end(),
                   [](const DataPoint& a, const DataPoint& b) { return a.frequency < b.frequency; });
  for (const DataPoint& point : reading.points) {
    const int n = ++session.SweepPoints;
    session.LoadFreq[n] = point.frequency;
    session.LoadR[n] = point.impedance.real();
    session.LoadX[n] = point.impedance.imag();
  }
  if (reading.outcome == Outcome::ParserError) {
    dialogs.Message("Parser error");
    session.FileName.clear();
  }
}

std::string TouchstoneText(const Session& session, const std::string& dateTime) {
  std::string text = "! Kalvex " + session.Version + ", " + dateTime + "\n";
  text += "! input reflection of the network, sweep of " + std::to_string(session.SweepPoints) +
          " points\n";
  text += "# Hz S RI R " + ExactNumberText(session.SystemZ) + "\n";
  const SweepIndexes indexes = SweepIndexesOf(session);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    if (!IsFiniteSweepPoint(session, k)) continue;
    const Complex z = Complex(session.SweepR[k], session.SweepX[k]) / session.SystemZ;
    Complex gamma = (z - 1.0) / (z + 1.0);
    // Where that overflows (a huge impedance, or exactly −SystemZ) the sweep's
    // own reflection stands, the chart's: its reactance of 0 taken as 1e-12.
    if (!std::isfinite(gamma.real()) || !std::isfinite(gamma.imag())) {
      gamma = std::polar(session.SweepRho[k], session.SweepAngle[k] * kDegree);
    }
    text += ExactNumberText(session.SweepFreq[k]) + " " + ExactNumberText(gamma.real()) + " " + ExactNumberText(gamma.imag()) +
            "\n";
  }
  return text;
}

}  // namespace kalvex
