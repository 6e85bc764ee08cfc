#include <QApplication>
#include <QString>
#include <QWidget>

#include "model/session.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  kalvex::Session session;
  kalvex::InitialiseSession(session);

  QWidget welcome;
  welcome.setWindowTitle(QString::fromStdString("Kalvex " + session.Version + " - Welcome !"));
  welcome.resize(1200, 900);
  welcome.show();
  return application.exec();
}
