#include <QApplication>

#include "files/welcome_page.h"
#include "model/session.h"
#include "platform/qt_dialogs.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  kalvex::Session session;
  kalvex::QtDialogs dialogs;
  kalvex::WelcomePage welcome(session, dialogs);
  welcome.show();
  return application.exec();
}
