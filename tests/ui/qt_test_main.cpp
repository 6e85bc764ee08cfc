#include <gtest/gtest.h>

#include <QApplication>

// Widget tests run on Qt's offscreen platform: no screen is needed.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
