#include <sys/signalfd.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QApplication>
#include <QSocketNotifier>
#include <csignal>
#include <cstdio>
#include <string_view>

#include "app/composition_linux.h"
#include "ui/qt/qt_setup.h"

namespace {

constexpr int kFailure = 1;

/// Without a display the toolkit would abort; this asks first.
bool canReachDisplay() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool reachable = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return reachable;
}

/// The toolkit tells of a lost X server by a warning only. One line of ours, then the end: nothing can be given back to
/// a server that is gone.
void handleToolkitMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (message.startsWith(QLatin1String("The X11 connection broke"))) {
    std::fputs("rondora: the X server is gone\n", stderr);
    _exit(kFailure);
  }
  std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

/// Blocks SIGINT and SIGTERM and returns a descriptor that becomes readable when one comes.
int takeOverEndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

}  // namespace

int main(int argc, char** argv) {
  if (!canReachDisplay()) {
    std::fputs("rondora: no X server can be reached; set DISPLAY\n", stderr);
    return kFailure;
  }
  const int endSignals = takeOverEndSignals();
  qInstallMessageHandler(handleToolkitMessage);
  rondora::prepareQt();
  QApplication application(argc, argv);
  QSocketNotifier notifier(endSignals, QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, &application, &QApplication::quit);

  rondora::CompositionLinux composition(application);
  if (!composition.isUsable()) {
    std::fputs("rondora: the toolkit does not run on X11\n", stderr);
    return kFailure;
  }
  composition.start();
  const int status = QApplication::exec();
  composition.terminate();
  return status;
}
