#include "files/network_file.h"

#include <cmath>
#include <limits>
#include <optional>

#include "files/field_reader.h"
#include "files/safe_write.h"
#include "files/text_file.h"
#include "files/two_port_file.h"
#include "model/format.h"
#include "model/trim.h"

namespace kalvex {
namespace {

constexpr int kStoredSlots = 5;  // slots 1..5 of stages 1..5 go into the file

// A block's file as the network file names it: relative to the network
// file's folder, with "/" between folders on every system.
std::string StoredBlockName(const std::string& file, const std::filesystem::path& folder) {
  if (file.empty()) return "";
  const std::filesystem::path absolute = std::filesystem::absolute(file);
  return absolute.lexically_proximate(std::filesystem::absolute(folder)).generic_string();
}

std::string SessionFileText(const Session& session, const std::filesystem::path& folder,
                            const std::string& header, const std::string& dateTime) {
  std::string text;
  auto line = [&text](const std::string& content) { text += content + kLineEnd; };
  line(header);
  line(dateTime);
  line("");
  line("Frequency: " + FileNumber(session.Frequency));
  line("System impedance: " + FileNumber(session.SystemZ));
  line("");
  line("Antenna R: " + FileNumber(session.Value[0][1]));
  line("Antenna X: " + FileNumber(session.Value[0][2]));
  line("");
  for (int stage = 1; stage <= kLastStage; ++stage) {
    line("Element type for stage " + std::to_string(stage) + ":" +
         FileInteger(session.ElementType[stage]));
    for (int slot = 1; slot <= kStoredSlots; ++slot) {
      line("   Value(" + std::to_string(slot) + "): " + FileNumber(session.Value[stage][slot]));
    }
    // Only a block stage has this line, so that every other network's file
    // stays as it always was.
    if (session.ElementType[stage] == TwoPort) {
      line("   Two-port file: " + PrintableText(StoredBlockName(session.TwoPortBlocks[stage].file, folder)));
    }
    line("");
  }
  line("");
  line("Q circle value: " + FileNumber(session.QCircle));
  line("VSWR circle value: " + FileNumber(session.VSWRCircle));
  line("Sweep start: " + FileNumber(session.SweepStart));
  line("Sweep stop: " + FileNumber(session.SweepStop));
  line("Number of points:" + FileInteger(session.SweepPoints));
  return text;
}

enum class ReadEnd { Complete, Failed };

// Reads the fields in their fixed order, storing each at once. A file that
// ends early ends the read as complete; a value that cannot be stored, or (when
// `checked`) falls below its minimum, fails it.
class SessionFieldsReader {
 public:
  SessionFieldsReader(std::string_view contents, bool checked)
      : fields_(contents), checked_(checked) {}

  ReadEnd Read(Session& session) {
    // The header and date lines.
    if (!Skip() || !Skip()) return ReadEnd::Complete;
    if (!Double(session.Frequency, 10'000) || !Double(session.SystemZ, 1) ||
        !Double(session.Value[0][1], 1) || !Double(session.Value[0][2], kUnchecked)) {
      return end_;
    }
    for (int stage = 1; stage <= kLastStage; ++stage) {
      if (!Integer(session.ElementType[stage], kUnchecked)) return end_;
      for (int slot = 1; slot <= kStoredSlots; ++slot) {
        if (!Double(session.Value[stage][slot], kUnchecked)) return end_;
      }
      if (session.ElementType[stage] == TwoPort) {
        const auto name = fields_.Next();
        if (!name) return end_;
        session.TwoPortBlocks[stage].file = Trimmed(*name, " \t");
      }
    }
    if (!Single(session.QCircle, 0.1) || !Single(session.VSWRCircle, 1.001) ||
        !Double(session.SweepStart, 10'000) || !Double(session.SweepStop, 10'100) ||
        !Integer(session.SweepPoints, 1)) {
      return end_;
    }
    return ReadEnd::Complete;
  }

 private:
  static constexpr double kUnchecked = -std::numeric_limits<double>::infinity();

  bool Skip() { return fields_.Next().has_value(); }

  // The next field's number; nothing at the end of the file or when the number
  // overflows (end_ then tells which).
  std::optional<double> NextNumber() {
    const auto field = fields_.Next();
    if (!field) return std::nullopt;
    const NumericPrefix number = FieldNumber(*field);
    if (number.overflowed) {
      end_ = ReadEnd::Failed;
      return std::nullopt;
    }
    return number.value;
  }

  // Stores `value`, then fails the read when a checked value is below minimum.
  template <typename T>
  bool Store(T& target, double value, double minimum) {
    target = static_cast<T>(value);
    if (checked_ && value < minimum) {
      end_ = ReadEnd::Failed;
      return false;
    }
    return true;
  }

  bool Double(double& target, double minimum) {
    const auto value = NextNumber();
    return value && Store(target, *value, minimum);
  }

  bool Single(float& target, double minimum) {
    const auto value = NextNumber();
    if (!value) return false;
    if (std::fabs(*value) > std::numeric_limits<float>::max()) return Fail();
    return Store(target, *value, minimum);
  }

  // Whole numbers are rounded to the nearest integer, halves to the even one.
  bool Integer(int16_t& target, double minimum) {
    const auto value = NextNumber();
    if (!value) return false;
    const double rounded = std::nearbyint(*value);
    if (rounded < std::numeric_limits<int16_t>::min() ||
        rounded > std::numeric_limits<int16_t>::max()) {
      return Fail();
    }
    return Store(target, rounded, minimum);
  }

  bool Fail() {
    end_ = ReadEnd::Failed;
    return false;
  }

  FieldReader fields_;
  bool checked_;
  ReadEnd end_ = ReadEnd::Complete;
};

// Reads the file of each block stage, named relative to `folder`. A block
// whose file cannot be read leaves its stage empty, with a message naming
// the file when `dialogs` is given; the rest of the network stands.
void ReadBlockFiles(Session& session, const std::filesystem::path& folder, Dialogs* dialogs) {
  for (int stage = 1; stage <= kLastStage; ++stage) {
    if (session.ElementType[stage] != TwoPort) continue;
    TwoPortBlock& block = session.TwoPortBlocks[stage];
    const std::string name = block.file;
    TwoPortReading reading{nullptr, "The network names no file for the two-port block in stage " +
                                        std::to_string(stage) + "."};
    if (!name.empty()) {
      block.file = (folder / name).lexically_normal().string();
      reading = ReadTwoPortFile(block.file);
    }
    block.table = reading.table;
    if (block.table) continue;
    if (dialogs != nullptr) {
      dialogs->Message("The two-port block of stage " + std::to_string(stage) + ": " + reading.problem + kLineEnd +
                       "Stage " + std::to_string(stage) + " has been left empty.");
    }
    session.ElementType[stage] = Empty;
    session.Value[stage] = {};
    block = {};
  }
}

std::filesystem::path FolderOf(const std::filesystem::path& file) { return file.parent_path(); }

std::string ReadProblemMessage(const std::string& chosenName) {
  return "We had a problem reading file " + chosenName + kLineEnd + kLineEnd +
         "Defaults have been used but the network is empty.";
}

}  // namespace

std::string NetworkFileName(const std::string& chosenName) {
  return WithFileType(chosenName, ".SSF");
}

bool WriteNetworkFile(const Session& session, Dialogs& dialogs, const std::string& chosenName,
                      std::string* failure) {
  const std::string name = NetworkFileName(chosenName);
  if (name.empty()) return false;
  const std::string problem = WriteFileSafely(
      name, SessionFileText(session, FolderOf(name), "Kalvex network file", dialogs.LocalDateTime()));
  if (failure != nullptr) *failure = problem;
  return problem.empty();
}

void SaveNetworkAs(Session& session, Dialogs& dialogs) {
  const std::string chosen = dialogs.ChooseSaveFile("Save Kalvex network file", kNetworkFileFilter, session.FileName);
  if (chosen.empty()) return;
  session.FileName = chosen;
  WriteNetworkFile(session, dialogs, session.FileName);
}

bool ReadNetworkFile(Session& session, Dialogs& dialogs, const std::string& chosenName) {
  if (chosenName.empty()) {
    dialogs.Message("No file was chosen;  we are exiting the file-reading routine.");
    return false;
  }
  std::string failure;
  const std::optional<std::string> contents = ReadTextFile(chosenName, &failure);
  if (!contents) dialogs.Diagnostic(failure);
  SetNetworkDefaults(session);
  if (contents &&
      SessionFieldsReader(*contents, /*checked=*/true).Read(session) == ReadEnd::Complete) {
    ReadBlockFiles(session, FolderOf(chosenName), &dialogs);
    return true;
  }
  dialogs.Message(ReadProblemMessage(chosenName));
  SetNetworkDefaults(session);
  return false;
}

bool WriteLastSession(const Session& session, Dialogs& dialogs, const std::filesystem::path& path,
                      std::string* failure) {
  const std::string problem = WriteFileSafely(
      path, SessionFileText(session, FolderOf(path), "Kalvex last-session file", dialogs.LocalDateTime()));
  if (failure != nullptr) *failure = problem;
  if (problem.empty()) return true;
  dialogs.Beep();
  dialogs.Message(std::string("WriteLastSessionErrorHandler") + kLineEnd +
                  "The Kalvex last-session file was not written.");
  return false;
}

void ReadLastSession(Session& session, const std::filesystem::path& path) {
  const std::optional<std::string> contents = ReadTextFile(path);
  if (contents &&
      SessionFieldsReader(*contents, /*checked=*/false).Read(session) == ReadEnd::Complete) {
    ReadBlockFiles(session, FolderOf(path), nullptr);
    return;
  }
  SetNetworkDefaults(session);
}

}  // namespace kalvex
