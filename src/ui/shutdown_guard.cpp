#include "ui/shutdown_guard.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <csignal>

#include "files/network_file.h"
#include "ui/exit_dialog.h"

namespace kalvex {
namespace {

// A signal handler may do next to nothing: it writes one byte to this socket,
// and the event loop, woken by it, does the rest.
int signalSocket[2] = {-1, -1};

void OnSignal(int) {
  const char byte = 1;
  [[maybe_unused]] const ssize_t written = ::write(signalSocket[0], &byte, 1);
}

}  // namespace

void SaveSessionOnShutdown(const Session& session, Dialogs& dialogs) {
  QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp,
                   [&session, &dialogs](QSessionManager&) { WriteLastSession(session, dialogs); });

  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalSocket) != 0) return;
  auto* notifier = new QSocketNotifier(signalSocket[1], QSocketNotifier::Read, qGuiApp);
  QObject::connect(notifier, &QSocketNotifier::activated, qGuiApp, [&session, &dialogs, notifier] {
    char byte = 0;
    [[maybe_unused]] const ssize_t got = ::read(signalSocket[1], &byte, 1);
    notifier->setEnabled(false);  // one way out, however many signals come
    SaveSessionAndEnd(session, dialogs);
  });
  struct sigaction action {};
  action.sa_handler = OnSignal;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGHUP, &action, nullptr);
}

}  // namespace kalvex
