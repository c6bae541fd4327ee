#include <sys/signalfd.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QApplication>
#include <QSocketNotifier>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include "app/composition_linux.h"
#include "platform/linux/desktop/journal_log.h"
#include "platform/linux/x11/typing/synthetic_key_guard.h"
#include "platform/qt/qt_messages.h"
#include "platform/qt/qt_setup.h"

namespace {

using rondora::CompositionLinux;

constexpr int kFailure = 1;

/// What still has to give back what it took from the desktop. Libraries that end the process by themselves call back
/// without any context.
CompositionLinux* running = nullptr;

/// Everything has been given back, and another instance is wanted.
bool startAgain = false;

void terminateRunning() {
  if (CompositionLinux* composition = std::exchange(running, nullptr)) composition->terminate();
}

/// The session management library ends the process when the session manager is gone. Nothing else of the process is in
/// order by then.
void handleForeignExit() {
  if (running == nullptr) return;
  terminateRunning();
  _exit(kFailure);
}

/// Without a display the toolkit would abort; this asks first.
bool canReachDisplay() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool reachable = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return reachable;
}

/// Signals that ask for the end; SIGHUP: the terminal or the session's leader is gone.
constexpr int kEndSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// Blocks the signals that ask for the end, in the threads to come too, and returns a descriptor that becomes readable
/// when one comes. One that was to be ignored when we were started stays ignored.
int takeOverEndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kEndSignals) {
    struct sigaction present {};
    sigaction(signal, nullptr, &present);
    if (present.sa_handler != SIG_IGN) sigaddset(&signals, signal);
  }
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

/// The exit status for a program that has nothing to do here; nothing when it has.
std::optional<int> reasonNotToRun(const CompositionLinux& composition) {
  switch (composition.state()) {
    case CompositionLinux::State::withoutDisplay:
      std::fputs("rondora: the toolkit does not run on X11\n", stderr);
      return kFailure;
    case CompositionLinux::State::blocked:
      return kFailure;
    case CompositionLinux::State::handedOver:
      std::puts("rondora: already running; its settings are open");
      return EXIT_SUCCESS;
    case CompositionLinux::State::ready:
      break;
  }
  return std::nullopt;
}

int run(int argc, char** argv, int endSignals, rondora::Log& log) {
  QApplication application(argc, argv);
  CompositionLinux composition(application, log);
  if (const auto status = reasonNotToRun(composition)) return *status;
  // The signal is left unread: whatever loop runs is told to end until none runs any more.
  QSocketNotifier endRequests(endSignals, QSocketNotifier::Read);
  QObject::connect(&endRequests, &QSocketNotifier::activated, &application, &QApplication::quit);
  running = &composition;
  composition.start();
  std::atexit(handleForeignExit);
  const int status = QApplication::exec();
  startAgain = composition.isRelaunchRequested();
  terminateRunning();
  return status;
}

/// Starts the program anew in this process. Returns when that fails.
void becomeNewInstance(char** argv) {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kEndSignals) sigaddset(&signals, signal);
  sigprocmask(SIG_UNBLOCK, &signals, nullptr);
  execv("/proc/self/exe", argv);
}

}  // namespace

int main(int argc, char** argv) {
  const rondora::x11::SyntheticKeyGuard guard;
  rondora::desktop::JournalLog log;
  CompositionLinux::runLegacyMigration(log);
  if (!canReachDisplay()) {
    std::fputs("rondora: no X server can be reached; set DISPLAY\n", stderr);
    return kFailure;
  }
  const int endSignals = takeOverEndSignals();
  rondora::prepareQt();
  const rondora::QtMessages messages(log, [&log] {
    log.error("the X server is gone");
    terminateRunning();
    _exit(kFailure);
  });
  const int status = run(argc, argv, endSignals, log);
  if (startAgain) becomeNewInstance(argv);
  return status;
}
