#include <QApplication>

#include "model/session.h"
#include "model/vector_state.h"
#include "ui/qt_dialogs.h"
#include "ui/session_history.h"
#include "ui/shutdown_guard.h"
#include "ui/welcome_page.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  // The window system's start-up leaves the vector registers' upper halves in
  // use; the calculation-heavy regions clear them again on entry.
  kalvex::ClearUpperVectorState();
  kalvex::Session session;
  kalvex::QtDialogs dialogs;
  kalvex::SaveSessionOnShutdown(session, dialogs);
  kalvex::SessionHistory history(session);
  // Pages delete themselves when they close, so the first one is on the heap too.
  (new kalvex::WelcomePage(session, dialogs))->showMaximized();
  return application.exec();
}
