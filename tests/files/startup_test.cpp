#include <gtest/gtest.h>

#include "files/defaults_file.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

using DefaultsFile = testing::TempDirTest;

// All three numbers are read, or none: any fault keeps the start values.
TEST_F(DefaultsFile, ReadsAllThreeOrFallsBackOnAllThree) {
  struct Case {
    const char* contents;  // nullptr: no file
    float aspect, capacitorQ, inductorQ;
  };
  for (const Case& c : {Case{"1.2\r\n500\r\n150\r\n", 1.2f, 500, 150}, Case{".8\r\n500\r\n150\r\n", 0.8f, 500, 150},
                        Case{"0.9, 700, 90", 0.9f, 700, 90}, Case{"1\n2\n3", 1, 2, 3},
                        Case{nullptr, 0.75f, 1000, 200}, Case{"1.2\r\n500\r\n", 0.75f, 1000, 200},
                        Case{"1.2\r\nlots\r\n150\r\n", 0.75f, 1000, 200},
                        Case{"1.2\r\n500x\r\n150\r\n", 0.75f, 1000, 200},
                        Case{"1.2\r\n1e99\r\n150\r\n", 0.75f, 1000, 200}}) {
    std::filesystem::remove(PathOf("Defaults.TXT"));
    if (c.contents != nullptr) WriteFile("Defaults.TXT", c.contents);
    Session session;
    InitialiseSession(session);
    session.ChartAspect = 1.4f;
    ReadDefaults(session, PathOf("Defaults.TXT"));
    const std::string name = c.contents ? c.contents : "no file";
    EXPECT_EQ(session.ChartAspect, c.aspect) << name;
    EXPECT_EQ(session.DefaultCapacitorQ, c.capacitorQ) << name;
    EXPECT_EQ(session.DefaultInductorQ, c.inductorQ) << name;
  }
}

TEST_F(DefaultsFile, WritesBareNumbersOnePerLine) {
  Session written;
  InitialiseSession(written);
  written.ChartAspect = 1.3f;
  written.DefaultInductorQ = 123.5f;
  ASSERT_TRUE(WriteDefaults(written, PathOf("Defaults.TXT")));
  EXPECT_EQ(ReadFile("Defaults.TXT"), "1.3\r\n1000\r\n123.5\r\n");  // the layout the reader's table reads
  EXPECT_FALSE(WriteDefaults(written, PathOf("missing-folder/Defaults.TXT")));
}

}  // namespace
}  // namespace kalvex
