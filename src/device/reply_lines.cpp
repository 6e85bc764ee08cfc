#include "device/reply_lines.h"

namespace kalvex {
namespace {

// No answer's line comes near this; a longer one is noise on the line.
constexpr std::size_t kLongestLine = 256;

std::string_view WithoutPrompts(std::string_view line) {
  while (line.starts_with(kAnalyserPrompt)) line.remove_prefix(kAnalyserPrompt.size());
  return line;
}

}  // namespace

void ReplyLines::Expect(std::string command, bool echoed) {
  command_ = std::move(command);
  echoSeen_ = !echoed;
  partial_.clear();
  lines_.clear();
}

std::optional<std::vector<std::string>> ReplyLines::Feed(std::string_view bytes) {
  for (const char c : bytes) {
    if (c == '\r') continue;
    if (c != '\n') {
      if (partial_.size() < kLongestLine) partial_ += c;
      else if (partial_.size() == kLongestLine) {
        ++overlong_;
        partial_ += c;  // marks the line as overlong until its end
      }
      continue;
    }
    const bool overlong = partial_.size() > kLongestLine;
    const std::string_view line = WithoutPrompts(partial_);
    if (!echoSeen_) {
      echoSeen_ = line == command_;
    } else if (!overlong) {
      lines_.emplace_back(line);
    }
    partial_.clear();
  }
  if (echoSeen_ && partial_.ends_with(kAnalyserPrompt)) {
    partial_.clear();
    return std::move(lines_);
  }
  return std::nullopt;
}

}  // namespace kalvex
