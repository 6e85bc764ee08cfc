#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_test.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

using BadInputTest = testing::CliTest;

// A network file or a load-data file spoilt in one way, through kalvex-cli
// sweep: it ends with the program's message and exit status 1 (or, where the
// text is still a readable file, does its work), never a crash or a hang, and
// never leaves a half-written output file.
TEST_F(BadInputTest, EndsWithAMessageAndNoHalfWrittenOutput) {
  const std::string good = ReadFile("net.SSF");
  const auto with = [&good](const std::string& from, const std::string& to) {
    std::string text = good;
    return text.replace(text.find(from), from.size(), to);
  };
  struct Case { const char* name; bool asLoadData; std::string contents; int exitCode; };  // asLoadData: to --load
  std::string lfOnly = good;
  std::erase(lfOnly, '\r');
  for (const Case& c : {
           // A file that ends early keeps the defaults: it reads without complaint.
           Case{"empty", false, "", 0},
           Case{"binary garbage", false, std::string("\x89PNG\r\n\x1a\n\xff\xfe\x01", 11), 1},
           Case{"NUL bytes", false, with("14000000", std::string("14\0\0", 4)), 1},
           Case{"one 10 MB line", false, std::string(10'000'000, '7'), 0},
           Case{"LF-only lines", false, lfOnly, 0},
           Case{"1e309", false, with(" 14000000 ", " 1e309 "), 1},
           Case{"NaN", false, with(" 14000000 ", " NaN "), 1},
           // Element types are not checked; the calculation passes unknown ones over.
           Case{"element type 99", false, with("stage 1: 1 ", "stage 1: 99 "), 0},
           Case{"70000 points", false, with("points: 5 ", "points: 70000 "), 1},
           Case{"load data: garbage", true, std::string("\x01\x02\xff,,,;;;\r\n", 10), 0},
           // Values are read as the boxes read them: 1E+400 is kept at 10 GHz.
           Case{"load data: 1E+400", true, "1E+400, 50, 0\r\n", 0}}) {
    fs::remove(PathOf("out.DAT"));
    const std::string spoilt = PathOf("spoilt file \xc3\xa9.txt");  // spaces and a non-ASCII letter
    WriteFile("spoilt file \xc3\xa9.txt", c.contents);
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
}

}  // namespace
}  // namespace kalvex
