#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "model/session.h"
#include "support/fake_dialogs.h"
#include "support/temp_dir.h"
#include "ui/page.h"

namespace kalvex::testing {

// Runs each widget test in a fresh folder, as the program runs in its working
// folder.
class PagesInFolder : public TempDirTest {
 protected:
  void SetUp() override {
    TempDirTest::SetUp();
    previous_ = std::filesystem::current_path();
    std::filesystem::current_path(PathOf(""));
    // A page closed by an earlier test ended the program. Outside the
    // application's own loop Qt keeps that end, and every modal dialog's loop
    // would stop at once; a turn of the application's loop clears it.
    QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
    QCoreApplication::exec();
  }
  void TearDown() override {
    std::filesystem::current_path(previous_);
    TempDirTest::TearDown();
  }

  Session session;
  FakeDialogs dialogs;

 private:
  std::filesystem::path previous_;
};

// A click at a point in page units, as a user clicks the page.
inline void ClickPage(Page& page, double x, double y) {
  const QRectF frame = page.Frame();
  const QSizeF size = page.LogicalSize();
  QTest::mouseClick(&page, Qt::LeftButton, {}, QPoint(static_cast<int>(frame.x() + x * frame.width() / size.width()),
                           static_cast<int>(frame.y() + y * frame.height() / size.height())));
}

// Runs `act` on the modal dialog that the next action opens, once it shows.
template <typename Dialog>
void WhenModalShows(std::function<void(Dialog&)> act) {
  QTimer::singleShot(0, [act] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    act(*dialog);
  });
}

}  // namespace kalvex::testing
