#include "ui/exit_dialog.h"

#include <QCoreApplication>

#include <algorithm>
#include <filesystem>

#include "files/exit_actions.h"
#include "files/network_file.h"
#include "ui/controls.h"

namespace kalvex {
namespace {

// The last-session file by its full path, so that a message that it could not
// be written says where.
std::filesystem::path LastSessionPath() {
  std::error_code error;
  const std::filesystem::path full = std::filesystem::absolute(kLastSessionFileName, error);
  return error ? std::filesystem::path(kLastSessionFileName) : full;
}

}  // namespace

void EndProgram() { QCoreApplication::exit(0); }

void SaveSessionAndEnd(const Session& session, Dialogs& dialogs) {
  WriteLastSession(session, dialogs);
  EndProgram();
}

ExitDialog::ExitDialog(Session& session, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent),
      cmdCancel(new QPushButton("Cancel / Continue", this)),
      cmdSave(new QPushButton("Save then exit", this)),
      cmdExit(new QPushButton("End / Quit", this)),
      Label2(new QLabel(this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle("Exit ?");
  setModal(true);
  const double scale = DialogFrame(this);
  setFixedSize(Twips(6000), Twips(6000));
  cmdCancel->setGeometry(Twips(1500), Twips(1200), Twips(3000), Twips(450));
  cmdSave->setGeometry(Twips(1500), Twips(2100), Twips(3000), Twips(450));
  cmdExit->setGeometry(Twips(1500), Twips(3000), Twips(3000), Twips(450));
  Label2->setAlignment(Qt::AlignCenter);
  Label2->setAutoFillBackground(true);
  Label2->hide();

  if (NetworkIsEmpty(session_)) {
    cmdSave->setEnabled(false);
    Label2->setGeometry(0, 0, Twips(6000), Twips(300));
    Label2->setStyleSheet("background: white;");
    Label2->setText("The network is empty.");
    Label2->show();
  }
  ScalePlaced(this, scale);

  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdExit, &QPushButton::clicked, this,
          [this] { ShowSavedAndEnd(EndAndQuit(session_, dialogs_, LastSessionPath())); });
  connect(cmdSave, &QPushButton::clicked, this, [this] {
    if (const auto saved = SaveThenExit(session_, dialogs_, LastSessionPath())) {
      ShowSavedAndEnd(*saved);
    }
  });
}

void ExitDialog::ShowSavedAndEnd(const std::string& message) {
  Label2->setText(QString::fromStdString(message));
  // A message of what could not be saved is longer than the line the saved
  // message takes: it wraps, and the label grows to hold it.
  Label2->setWordWrap(true);
  Label2->setGeometry(0, 0, width(), std::max(Twips(450), Label2->heightForWidth(width())));
  Label2->setStyleSheet("background: rgb(221, 255, 221);");
  Label2->show();
  dialogs_.Pause(2);
  Label2->hide();
  accept();
  EndProgram();
}

}  // namespace kalvex
