#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kalvex {

struct Command;

// The values a number option takes, and how messages name them.
struct Range {
  double minimum;
  double maximum;
  const char* text;           // "10 kHz to 10 GHz"
  bool aboveMinimum = false;  // the minimum itself is left out
  bool whole = false;         // whole numbers only

  bool Holds(double value) const;
};

// Any finite number: options whose range the command applies itself.
inline constexpr Range kAnyNumber = {-1e308, 1e308, "any number"};

// A number as the command line takes it: the whole word a finite number, with
// at most one multiplier letter of the value boxes after it ("14.2M", "100p").
std::optional<double> CliNumber(const std::string& word);

// One command's arguments: FILE and the options, each declared in one line,
// read by one parser. Every valued option takes exactly one value: a value
// that is missing (an option name in its place counts as missing), empty,
// not a finite number where a number is due, outside its range, or given
// twice is refused, naming the option, with the usage. List options given
// twice are joined into one list. Unknown options and extra words are refused.
class CommandLine {
 public:
  explicit CommandLine(const Command& command);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  CommandLine& File(std::string& path);
  CommandLine& OptionalFile(std::optional<std::string>& path);
  CommandLine& Number(const char* name, const char* unit, std::optional<double>& value,
                      const Range& range = kAnyNumber);
  // A file name or a word; `check` says what is wrong with a value, "" when nothing.
  CommandLine& Text(const char* name, const char* unit, std::optional<std::string>& value,
                    std::function<std::string(const std::string&)> check = nullptr);
  CommandLine& Choice(const char* name, std::optional<std::string>& value,
                      const std::vector<std::string>& words);
  CommandLine& Flag(const char* name, bool& on);
  CommandLine& NumberList(const char* name, const char* unit, std::vector<double>& values,
                          const Range& range);
  // Words from `words`, any case, given back in upper case.
  CommandLine& WordList(const char* name, std::vector<std::string>& values,
                        const std::vector<std::string>& words);

  // Reads `words` (the command's words after its name). Returns the exit code
  // when the command must stop: a refusal (2), or --help answered (0).
  std::optional<int> Parse(const std::vector<std::string>& words, std::ostream& out,
                           std::ostream& err);

  // The text given for option `name`, as typed.
  std::string Given(const std::string& name) const;

  // "kalvex-cli COMMAND: ", the start of the command's messages.
  std::string Prefix() const;

  // Refuses the arguments for `problem`: the message, then the usage; exit 2.
  int Refuse(const std::string& problem, std::ostream& err) const;

 private:
  const Command& command_;
  std::unique_ptr<CLI::App> app_;
  std::deque<double> numbers_;
  std::deque<std::string> texts_;
  std::map<std::string, std::string> given_;
  std::vector<std::function<void()>> finishers_;
};

}  // namespace kalvex
