#include <gtest/gtest.h>

#include "files/sweep_data_file.h"
#include "support/fake_dialogs.h"
#include "support/networks.h"
#include "support/temp_dir.h"

namespace kalvex {
namespace {

using SweepDataFileTest = testing::TempDirTest;

// Only a Rho of exactly 0 gets the 180 dB floor; a calculated match (Rho
// 5e-13, its reactance taken as 1e-12) has its own return loss.
TEST_F(SweepDataFileTest, WritesHeadingRowsAndEmptyLastLine) {
  Session session = testing::SessionOnLoad(50, 0, 14e6);
  session.SweepPoints = 5;
  testing::FillSweepPoint(session, 0, 14e6, 150, 0, 0.5, 0, 3);
  testing::FillSweepPoint(session, 1, 14.5e6, 50, 50, 0.4472135954999579, 63.43494882292201, 2.618033988749895);
  testing::FillSweepPoint(session, 2, 15e6, 0, 50, 1, 90, 1'000'000);
  testing::FillSweepPoint(session, 3, 16e6, 50, 0, 0, 0, 1);
  testing::FillSweepPoint(session, 4, 17e6, 50, 0, 5e-13, 90, 1);
  testing::FakeDialogs dialogs;
  ASSERT_TRUE(WriteSweepData(session, dialogs, PathOf("sweep1.txt")));
  EXPECT_EQ(ReadFile("sweep1.DAT"),
            "Kalvex data file\r\nFilename: " + PathOf("sweep1.txt") + "\r\n2026-11-22 12:00:00\r\n\r\n"
            "Freq, Resistance, Reactance, Rho, RhoAngle, Return loss, VSWR\r\n\r\n"
            " 14000000  150  0  .5  0  6.02059991327962  3 \r\n"
            " 14500000  50  50  .447213595499958  63.434948822922  6.98970004336019  2.61803398874989 \r\n"
            " 15000000  0  50  1  90  0  1000000 \r\n"
            " 16000000  50  0  0  0  180  1 \r\n"
            " 17000000  50  0  5E-13  90  246.02059991328  1 \r\n\r\n");
}

}  // namespace
}  // namespace kalvex
