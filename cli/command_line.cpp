#include "command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "commands.h"
#include "model/format.h"
#include "model/number_text.h"

namespace kalvex {
namespace {

// A word where a value is due that is an option name: the value is missing.
// Numbers may start with a minus; file names starting with one are written
// "./-name".
bool LooksLikeAnOption(const std::string& word, bool numberDue) {
  if (word.size() < 2 || word.front() != '-') return false;
  return !(numberDue && CliNumber(word));
}

// What is wrong with a value before its type is looked at; "" when nothing.
std::string ValueProblem(const std::string& word, bool numberDue) {
  if (word.empty()) return "the value is empty";
  if (LooksLikeAnOption(word, numberDue)) return "a value is missing (" + word + " is an option)";
  return "";
}

std::string Upper(std::string word) {
  for (char& c : word) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return word;
}

}  // namespace

bool Range::Holds(double value) const {
  if (whole && value != std::floor(value)) return false;
  return (aboveMinimum ? value > minimum : value >= minimum) && value <= maximum;
}

std::optional<double> CliNumber(const std::string& word) {
  const char* begin = word.data();
  const char* end = begin + word.size();
  double multiplier = 1;
  if (!word.empty() && MultiplierOf(word.back()) != 0) {
    multiplier = MultiplierOf(word.back());
    --end;
  }
  // from_chars reads "inf" and "nan" too: only digits may start the number.
  const char* digits = begin != end && *begin == '-' ? begin + 1 : begin;
  if (digits == end || !(std::isdigit(static_cast<unsigned char>(*digits)) || *digits == '.')) {
    return std::nullopt;
  }
  double value = 0;
  const auto [stop, error] = std::from_chars(begin, end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  value *= multiplier;
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

CommandLine::CommandLine(const Command& command)
    : command_(command), app_(std::make_unique<CLI::App>("", command.name)) {
  app_->set_help_flag("-h,--help");
}

CommandLine::~CommandLine() = default;

CommandLine& CommandLine::File(std::string& path) {
  app_->add_option("FILE", path)->required()->check(
      CLI::Validator([](std::string& word) { return ValueProblem(word, false); }, "", ""));
  return *this;
}

CommandLine& CommandLine::OptionalFile(std::optional<std::string>& path) {
  std::string& text = texts_.emplace_back();
  CLI::Option* option = app_->add_option("FILE", text)->check(
      CLI::Validator([](std::string& word) { return ValueProblem(word, false); }, "", ""));
  finishers_.push_back([option, &text, &path] {
    if (option->count() > 0) path = text;
  });
  return *this;
}

CommandLine& CommandLine::Number(const char* name, const char* unit, std::optional<double>& value,
                                 const Range& range) {
  double& number = numbers_.emplace_back();
  const std::string key = name;
  CLI::Option* option =
      app_->add_option(name, number)
          ->type_name(unit)
          ->multi_option_policy(CLI::MultiOptionPolicy::Throw)
          ->transform(CLI::Validator(
              [this, key](std::string& word) {
                given_[key] = word;
                if (std::string problem = ValueProblem(word, true); !problem.empty()) return problem;
                const auto read = CliNumber(word);
                if (!read) return word + " is not a finite number";
                word = ExactNumberText(*read);
                return std::string();
              },
              "", ""))
          ->check(CLI::Validator(
              [this, key, range](std::string& word) {
                const auto read = CliNumber(word);
                if (read && range.Holds(*read)) return std::string();
                return given_[key] + " is outside its range, " + range.text;
              },
              "", ""));
  finishers_.push_back([option, &number, &value] {
    if (option->count() > 0) value = number;
  });
  return *this;
}

CommandLine& CommandLine::Text(const char* name, const char* unit, std::optional<std::string>& value,
                               std::function<std::string(const std::string&)> check) {
  std::string& text = texts_.emplace_back();
  CLI::Option* option = app_->add_option(name, text)
                            ->type_name(unit)
                            ->multi_option_policy(CLI::MultiOptionPolicy::Throw)
                            ->check(CLI::Validator(
                                [check](std::string& word) {
                                  std::string problem = ValueProblem(word, false);
                                  if (problem.empty() && check) problem = check(word);
                                  return problem;
                                },
                                "", ""));
  finishers_.push_back([option, &text, &value] {
    if (option->count() > 0) value = text;
  });
  return *this;
}

CommandLine& CommandLine::Choice(const char* name, std::optional<std::string>& value,
                                 const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& word : words) list += (list.empty() ? "" : "|") + word;
  return Text(name, list.c_str(), value, [words, list](const std::string& word) {
    if (std::find(words.begin(), words.end(), word) != words.end()) return std::string();
    return word + " is none of " + list;
  });
}

CommandLine& CommandLine::Flag(const char* name, bool& on) {
  app_->add_flag(name, on);
  return *this;
}

CommandLine& CommandLine::NumberList(const char* name, const char* unit, std::vector<double>& values,
                                     const Range& range) {
  app_->add_option(name, values)
      ->type_name(unit)
      ->delimiter(',')
      ->transform(CLI::Validator(
          [range](std::string& word) {
            if (std::string problem = ValueProblem(word, true); !problem.empty()) return problem;
            const auto read = CliNumber(word);
            if (!read) return word + " is not a finite number";
            if (!range.Holds(*read)) return word + " is outside its range, " + range.text;
            word = ExactNumberText(*read);
            return std::string();
          },
          "", ""));
  return *this;
}

CommandLine& CommandLine::WordList(const char* name, std::vector<std::string>& values,
                                   const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& word : words) list += (list.empty() ? "" : ",") + word;
  app_->add_option(name, values)
      ->type_name(list)
      ->delimiter(',')
      ->transform(CLI::Validator(
          [words, list](std::string& word) {
            if (std::string problem = ValueProblem(word, false); !problem.empty()) return problem;
            word = Upper(word);
            if (std::find(words.begin(), words.end(), word) != words.end()) return std::string();
            return word + " is none of " + list;
          },
          "", ""));
  return *this;
}

std::optional<int> CommandLine::Parse(const std::vector<std::string>& words, std::ostream& out,
                                      std::ostream& err) {
  // The parser takes the words last first.
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  try {
    app_->parse(reversed);
  } catch (const CLI::CallForHelp&) {
    out << "usage: kalvex-cli " << command_.usage << "\n";
    return kExitOk;
  } catch (const CLI::ArgumentMismatch& error) {
    // The parser's own words for a single-valued option given twice.
    std::string problem = error.what();
    if (const auto at = problem.find(": At Most 1 required"); at != std::string::npos) {
      problem = problem.substr(0, at) + ": given more than once";
    }
    return Refuse(problem, err);
  } catch (const CLI::ParseError& error) {
    return Refuse(error.what(), err);
  }
  for (const auto& finish : finishers_) finish();
  return std::nullopt;
}

std::string CommandLine::Given(const std::string& name) const {
  const auto found = given_.find(name);
  return found == given_.end() ? "" : found->second;
}

std::string CommandLine::Prefix() const { return "kalvex-cli " + std::string(command_.name) + ": "; }

int CommandLine::Refuse(const std::string& problem, std::ostream& err) const {
  return UsageError(command_, problem, err);
}

}  // namespace kalvex
