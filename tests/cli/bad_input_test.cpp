#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_test.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

// A network file or a load-data file spoilt in one way, through kalvex-cli
// sweep: it ends with the program's message and exit status 1 (or, where the
// text is still a readable file, does its work), never a crash or a hang, and
// never leaves a half-written output file.
struct BadInput {
  const char* name;
  bool asLoadData;               // the spoilt file is given to --load
  std::string (*contents)(const std::string& good);
  int exitCode;
};

std::string Replace(std::string text, const std::string& from, const std::string& to) {
  text.replace(text.find(from), from.size(), to);
  return text;
}

using BadInputTest = testing::CliTest;

class BadInputs : public BadInputTest, public ::testing::WithParamInterface<BadInput> {};

TEST_P(BadInputs, EndWithAMessageAndNoHalfWrittenOutput) {
  SaveNetwork(SeriesCapacitor, 100e-12, 1000);
  const BadInput& c = GetParam();
  const std::string good = c.asLoadData ? "14M, 50, -3\r\n14.2M, 52, 1\r\n" : ReadFile("net.SSF");
  const std::string spoilt = PathOf("spoilt file \xc3\xa9.txt");  // spaces and a non-ASCII letter
  WriteFile("spoilt file \xc3\xa9.txt", c.contents(good));
  const int code = c.asLoadData
                       ? Run({"sweep", PathOf("net.SSF"), "--load", spoilt, "-o", PathOf("out.DAT")})
                       : Run({"sweep", spoilt, "-o", PathOf("out.DAT")});
  EXPECT_EQ(code, c.exitCode) << c.name << ": " << err.str();
  if (code != kExitOk) {
    EXPECT_FALSE(err.str().empty()) << c.name;
    EXPECT_FALSE(fs::exists(PathOf("out.DAT"))) << c.name;
  } else {
    EXPECT_TRUE(ReadFile("out.DAT").starts_with("Kalvex data file")) << c.name;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Spoilt, BadInputs,
    ::testing::Values(
        // A file that ends early keeps the defaults: it reads without complaint.
        BadInput{"empty", false, [](const std::string&) { return std::string(); }, 0},
        BadInput{"binary garbage", false,
                 [](const std::string&) { return std::string("\x89PNG\r\n\x1a\n\xff\xfe\x01", 11); }, 1},
        BadInput{"NUL bytes", false,
                 [](const std::string& good) { return Replace(good, "14000000", std::string("14\0\0", 4)); },
                 1},
        BadInput{"one 10 MB line", false,
                 [](const std::string&) { return std::string(10'000'000, '7'); }, 0},
        BadInput{"LF-only lines", false,
                 [](const std::string& good) {
                   std::string text;
                   for (const char c : good) if (c != '\r') text += c;
                   return text;
                 },
                 0},
        BadInput{"1e309", false, [](const std::string& good) { return Replace(good, " 14000000 ", " 1e309 "); }, 1},
        BadInput{"-0", false, [](const std::string& good) { return Replace(good, " 14000000 ", " -0 "); }, 1},
        BadInput{"NaN", false, [](const std::string& good) { return Replace(good, " 14000000 ", " NaN "); }, 1},
        BadInput{"1E+400", false, [](const std::string& good) { return Replace(good, " 14000000 ", " 1E+400 "); }, 1},
        // Element types are not checked; the calculation passes unknown ones over.
        BadInput{"element type 99", false,
                 [](const std::string& good) { return Replace(good, "stage 1: 1 ", "stage 1: 99 "); }, 0},
        BadInput{"element type -1", false,
                 [](const std::string& good) { return Replace(good, "stage 1: 1 ", "stage 1: -1 "); }, 0},
        BadInput{"0 points", false,
                 [](const std::string& good) { return Replace(good, "points: 5 ", "points: 0 "); }, 1},
        BadInput{"-5 points", false,
                 [](const std::string& good) { return Replace(good, "points: 5 ", "points: -5 "); }, 1},
        BadInput{"70000 points", false,
                 [](const std::string& good) { return Replace(good, "points: 5 ", "points: 70000 "); }, 1},
        BadInput{"load data: empty", true, [](const std::string&) { return std::string(); }, 1},
        BadInput{"load data: garbage", true,
                 [](const std::string&) { return std::string("\x01\x02\xff,,,;;;\r\n", 10); }, 0},
        // Values are read as the boxes read them: 1E+400 is kept at 10 GHz.
        BadInput{"load data: 1E+400", true,
                 [](const std::string&) { return std::string("1E+400, 50, 0\r\n"); }, 0}),
    [](const auto& info) { return testing::TestName(info.param.name); });

TEST_F(BadInputTest, HugeFilesAndFoldersAreRefused) {
  SaveNetwork(SeriesCapacitor, 100e-12, 1000);
  fs::resize_file(PathOf("net.SSF"), 200'000'000);  // sparse: nothing is read
  EXPECT_EQ(Run({"sweep", PathOf("net.SSF"), "-o", PathOf("out.DAT")}), kExitFailed);
  fs::create_directory(PathOf("folder.SSF"));
  EXPECT_EQ(Run({"sweep", PathOf("folder.SSF"), "-o", PathOf("out.DAT")}), kExitFailed);
  EXPECT_FALSE(fs::exists(PathOf("out.DAT")));
}

}  // namespace
}  // namespace kalvex
