#include <gtest/gtest.h>

#include "files/defaults_file.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

struct DefaultsCase {
  const char* name;
  const char* contents;  // nullptr: no file
  float aspect, capacitorQ, inductorQ;
};

class DefaultsFile : public testing::TempDirTest,
                     public ::testing::WithParamInterface<DefaultsCase> {};

TEST_P(DefaultsFile, ReadsAllThreeOrFallsBackOnAllThree) {
  const DefaultsCase& c = GetParam();
  if (c.contents != nullptr) WriteFile("Defaults.TXT", c.contents);
  Session session;
  InitialiseSession(session);
  session.ChartAspect = 1.4f;
  ReadDefaults(session, PathOf("Defaults.TXT"));
  EXPECT_EQ(session.ChartAspect, c.aspect) << c.name;
  EXPECT_EQ(session.DefaultCapacitorQ, c.capacitorQ) << c.name;
  EXPECT_EQ(session.DefaultInductorQ, c.inductorQ) << c.name;
}

INSTANTIATE_TEST_SUITE_P(
    Files, DefaultsFile,
    ::testing::Values(DefaultsCase{"three lines", "1.2\r\n500\r\n150\r\n", 1.2f, 500, 150},
                      DefaultsCase{"no leading zero", ".8\r\n500\r\n150\r\n", 0.8f, 500, 150},
                      DefaultsCase{"commas", "0.9, 700, 90", 0.9f, 700, 90},
                      DefaultsCase{"bare line feeds", "1\n2\n3", 1, 2, 3},
                      DefaultsCase{"missing", nullptr, 0.75f, 1000, 200},
                      DefaultsCase{"two lines", "1.2\r\n500\r\n", 0.75f, 1000, 200},
                      DefaultsCase{"empty", "", 0.75f, 1000, 200},
                      DefaultsCase{"not a number", "1.2\r\nlots\r\n150\r\n", 0.75f, 1000, 200},
                      DefaultsCase{"trailing text", "1.2\r\n500x\r\n150\r\n", 0.75f, 1000, 200},
                      DefaultsCase{"too large", "1.2\r\n1e99\r\n150\r\n", 0.75f, 1000, 200}),
    [](const auto& info) { return std::to_string(info.index); });

class DefaultsWrite : public testing::TempDirTest {};

TEST_F(DefaultsWrite, WritesBareNumbersThatReadBack) {
  Session written;
  InitialiseSession(written);
  written.ChartAspect = 0.75f;
  written.DefaultCapacitorQ = 1000;
  written.DefaultInductorQ = 200;
  ASSERT_TRUE(WriteDefaults(written, PathOf("Defaults.TXT")));
  EXPECT_EQ(ReadFile("Defaults.TXT"), "0.75\r\n1000\r\n200\r\n");

  written.ChartAspect = 1.3f;
  written.DefaultInductorQ = 123.5f;
  ASSERT_TRUE(WriteDefaults(written, PathOf("Defaults.TXT")));
  Session read;
  ReadDefaults(read, PathOf("Defaults.TXT"));
  EXPECT_EQ(read.ChartAspect, 1.3f);
  EXPECT_EQ(read.DefaultInductorQ, 123.5f);
}

TEST_F(DefaultsWrite, FailureIsReportedNotFatal) {
  Session session;
  InitialiseSession(session);
  EXPECT_FALSE(WriteDefaults(session, PathOf("missing-folder/Defaults.TXT")));
}

}  // namespace
}  // namespace kalvex
