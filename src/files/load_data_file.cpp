#include "files/load_data_file.h"

#include <optional>
#include <string_view>
#include <vector>

#include "files/line_reader.h"
#include "files/load_points.h"
#include "files/text_file.h"
#include "files/touchstone.h"
#include "model/format.h"
#include "model/trim.h"

namespace kalvex {
namespace {

constexpr int kMaxLoadPoints = kLoadPointCount - 1;

bool IsDataLine(std::string_view line) {
  return !line.empty() && std::string_view("!*'/\\").find(line.front()) == std::string_view::npos;
}

// The next data line, trimmed; nothing when the file ends first. `lineNumber`
// counts the lines read.
std::optional<std::string_view> NextDataLine(LineReader& lines, long& lineNumber) {
  while (const auto line = lines.Next()) {
    ++lineNumber;
    const std::string_view trimmed = Trim(*line, " \t");
    if (IsDataLine(trimmed)) return trimmed;
  }
  return std::nullopt;
}

}  // namespace

void NextField(std::string& line, std::string& field) {
  const std::size_t start = line.find_first_not_of(',');
  if (start == std::string::npos) {
    line.clear();
    return;
  }
  const std::size_t comma = line.find(',', start);
  field = line.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
  const std::size_t next = comma == std::string::npos ? comma : line.find_first_not_of(',', comma);
  line = next == std::string::npos ? "" : line.substr(next);
}

void ParseLoadFile(Session& session, Dialogs& dialogs, const std::string& name) {
  if (name.empty()) return;
  if (IsTouchstoneName(name)) {
    ReadTouchstone(session, dialogs, name);
    return;
  }
  session.SavedSweepPoints = session.SweepPoints;
  session.SweepPoints = 0;

  std::string failure;
  const std::optional<std::string> contents = ReadTextFile(name, &failure);
  if (!contents) dialogs.Diagnostic(failure);
  bool failed = !contents;
  if (contents) {
    LineReader lines(*contents);
    // A line with fewer than three fields reads the missing ones from the
    // last field taken, which may belong to the line before.
    std::string field;
    long lineNumber = 0;
    std::vector<long> leftOut;
    while (true) {
      const std::optional<std::string_view> dataLine = NextDataLine(lines, lineNumber);
      if (!dataLine || session.SweepPoints == kMaxLoadPoints) {
        failed = true;
        break;
      }
      const int n = ++session.SweepPoints;
      std::string rest(*dataLine);
      NextField(rest, field);
      session.LoadFreq[n] = ParseValue(field);
      NextField(rest, field);
      session.LoadR[n] = ParseValue(field);
      NextField(rest, field);
      session.LoadX[n] = ParseValue(field);
      if (!IsUsableLoad(session.LoadFreq[n], session.LoadR[n], session.LoadX[n])) {
        --session.SweepPoints;
        leftOut.push_back(lineNumber);
      }
      if (lines.AtEnd()) break;
    }
    if (!leftOut.empty()) dialogs.Message(LeftOutLoadMessage(name, leftOut));
  }
  if (failed) {
    dialogs.Message("Parser error");
    session.FileName.clear();
  }
}

bool ApplyLoadDataFile(Session& session, Dialogs& dialogs, const std::string& name) {
  const double sweepStart = session.SweepStart;
  const double sweepStop = session.SweepStop;
  const int16_t sweepPoints = session.SweepPoints;
  ParseLoadFile(session, dialogs, name);
  if (name.empty() || session.SweepPoints == 0) {
    session.SweepPoints = sweepPoints;
    session.SweepStart = sweepStart;
    session.SweepStop = sweepStop;
    session.LoadSource = 1;
    return false;
  }
  session.LoadSource = 2;
  session.SweepStart = session.LoadFreq[1];
  session.SweepStop = session.LoadFreq[session.SweepPoints];
  session.DataIndex = static_cast<int16_t>(session.SweepPoints / 2 + 1);
  session.Frequency = session.LoadFreq[session.DataIndex];
  session.Value[0][1] = session.LoadR[session.DataIndex];
  session.Value[0][2] = session.LoadX[session.DataIndex];
  return true;
}

bool GetLoadData(Session& session, Dialogs& dialogs) {
  return ApplyLoadDataFile(session, dialogs,
                           dialogs.ChooseOpenFile(kLoadDataTitle, kLoadDataFilter, ""));
}

}  // namespace kalvex
