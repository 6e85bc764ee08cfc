#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>

#include "cli.h"
#include "files/safe_write.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

class SafeWriteTest : public testing::TempDirTest {
 protected:
  // The names in the folder, so that a test sees any temporary file left.
  std::vector<std::string> Entries() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(PathOf(""))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  // Writes `name` through the text writer or, for ".pdf", through kalvex-cli
  // render; returns whether it succeeded.
  bool Write(const std::string& name) {
    if (!name.ends_with(".pdf")) return WriteFileSafely(PathOf(name), "new contents").empty();
    std::ostringstream out, err;
    return RunCli({"render", "--page", "welcome", "--size", "200x150", "-o", PathOf(name)}, out, err) == kExitOk;
  }
};

// Regular files and links are replaced whole (a regular file keeps its mode,
// a link stays a link); a folder, a read-only file and a missing folder are
// refused.
TEST_F(SafeWriteTest, RespectsEveryKindOfDestination) {
  for (const std::string suffix : {".txt", ".pdf"}) {
    const std::string regular = "regular" + suffix, target = "target" + suffix;
    const std::string link = "link" + suffix, locked = "locked" + suffix;
    WriteFile(regular, "old");
    ::chmod(PathOf(regular).c_str(), 0640);
    WriteFile(target, "old");
    fs::create_symlink(target, PathOf(link));
    WriteFile(locked, "old");
    fs::permissions(PathOf(locked), fs::perms::owner_read);
    fs::create_directory(PathOf("folder" + suffix));

    EXPECT_TRUE(Write(regular)) << suffix;
    EXPECT_NE(ReadFile(regular), "old");
    EXPECT_EQ(fs::status(PathOf(regular)).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_TRUE(Write(link)) << suffix;
    EXPECT_TRUE(fs::is_symlink(PathOf(link)));
    EXPECT_NE(ReadFile(target), "old");
    EXPECT_FALSE(Write(locked)) << suffix;
    EXPECT_EQ(ReadFile(locked), "old");
    EXPECT_FALSE(Write("folder" + suffix));
    EXPECT_FALSE(Write("missing/file" + suffix));
  }
  EXPECT_EQ(Entries().size(), 10u);  // no temporary file left
}

// A writer stopped by the file-size limit keeps the old file and leaves no
// temporary file, for text, SVG and PDF alike.
TEST_F(SafeWriteTest, AFailedWriteKeepsTheOldFile) {
  for (const char* name : {"big.txt", "chart.svg", "chart.pdf"}) {
    WriteFile(name, "old");
    const pid_t child = ::fork();
    if (child == 0) {
      ::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{1000, 1000};
      ::setrlimit(RLIMIT_FSIZE, &limit);
      std::ostringstream out, err;
      const bool ok = std::string(name).ends_with(".txt")
              ? WriteFileSafely(PathOf(name), std::string(100'000, 'x')).empty()
              : RunCli({"render", "--page", "analysis", "-o", PathOf(name)}, out, err) == kExitOk;
      ::_exit(ok ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << name;
    EXPECT_EQ(ReadFile(name), "old") << name;
  }
  EXPECT_EQ(Entries(), (std::vector<std::string>{"big.txt", "chart.pdf", "chart.svg"}));
}

}  // namespace
}  // namespace kalvex
