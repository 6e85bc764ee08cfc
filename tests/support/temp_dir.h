#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace kalvex::testing {

// A fresh folder per test, removed afterwards, with small helpers to write and
// read the text files the tests work on.
class TempDirTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    // The process id keeps two runs of the suite at once apart; parameterised
    // test names hold "/", which cannot stand in a folder name.
    std::string name = std::string(info->test_suite_name()) + "-" + info->name();
    std::replace(name.begin(), name.end(), '/', '_');
    dir_ = std::filesystem::temp_directory_path() / ("kalvex-" + std::to_string(::getpid()) + "-" + name);
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override { std::filesystem::remove_all(dir_); }

  std::string PathOf(const std::string& name) const { return (dir_ / name).string(); }

  void WriteFile(const std::string& name, const std::string& contents) const {
    std::ofstream(dir_ / name, std::ios::binary) << contents;
  }

  std::string ReadFile(const std::string& name) const {
    std::ifstream in(dir_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path dir_;
};

// Splits a file's text at CR LF, and joins lines back with CR LF after each.
inline std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find("\r\n", start);
    lines.push_back(text.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 2;
  }
  return lines;
}

inline std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

}  // namespace kalvex::testing
