#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kalvex {

// The shell's prompt, which ends every answer.
inline constexpr std::string_view kAnalyserPrompt = "ch> ";

// Gathers the analyser's answer to one command from the bytes as they come:
// the shell echoes the command line, sends its output as lines ending in CR
// LF, then the prompt. Whatever comes before the echo (the end of an earlier
// answer, a stray prompt) is not part of the answer.
class ReplyLines {
 public:
  // Starts waiting for the answer to `command`; with `echoed` false any
  // prompt ends it, echo or not (for waking the shell, whatever it was doing).
  void Expect(std::string command, bool echoed = true);

  // Takes bytes; returns the answer's lines (echo and prompt not included)
  // once the prompt that ends it has come.
  std::optional<std::vector<std::string>> Feed(std::string_view bytes);

  // Lines dropped for being far longer than any answer's line.
  int OverlongLines() const { return overlong_; }

 private:
  std::string command_;
  bool echoSeen_ = false;
  std::string partial_;
  std::vector<std::string> lines_;
  int overlong_ = 0;
};

}  // namespace kalvex
