#include <sys/signalfd.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QApplication>
#include <QSocketNotifier>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "app/command_line.h"
#include "app/composition_linux.h"
#include "app/composition_picture_service.h"
#include "app/repeat_limit.h"
#include "base/trace.h"
#include "platform/linux/desktop/glib_messages.h"
#include "platform/linux/desktop/journal_log.h"
#include "platform/linux/desktop/message_buses.h"
#include "platform/linux/desktop/own_image.h"
#include "platform/linux/desktop/standard_error.h"
#include "platform/linux/desktop/xdg_folders.h"
#include "platform/linux/x11/guard/input_guard.h"
#include "platform/posix/picture_service.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_process_environment.h"
#include "platform/posix/system_clock.h"
#include "platform/qt/qt_messages.h"
#include "platform/qt/qt_setup.h"
#include "storage/config_manager.h"

namespace {

using rondora::CompositionLinux;
using rondora::SingleInstance;

constexpr int kFailure = 1;
constexpr int kUsageError = 2;
/// For the toolkit's end, which may wait for a clipboard manager or a bus that hangs; everything is saved by then.
constexpr std::chrono::milliseconds kMaxToolkitEnd{300};

/// The composition that still holds grabs and claims. Global because exit handlers get no context.
CompositionLinux* running = nullptr;

/// Start a new instance once everything is released.
bool startAgain = false;

void terminateRunning() {
  if (CompositionLinux* composition = std::exchange(running, nullptr)) composition->terminate();
}

/// The session management library calls exit() when the session manager is gone; no other clean-up runs then.
void handleForeignExit() {
  if (running == nullptr) return;
  terminateRunning();
  _exit(kFailure);
}

/// The exit status when the arguments ask for a text only.
std::optional<int> replyToArguments(int argc, char** argv) {
  const rondora::desktop::PosixFileSystem files(
      rondora::desktop::xdgFolders(rondora::desktop::PosixProcessEnvironment()));
  const auto document = rondora::ConfigManager::configURL(files).string();
  const auto reply = rondora::replyToArguments({argv + 1, argv + argc}, document);
  if (!reply) return std::nullopt;
  std::fputs(reply->text.c_str(), reply->isUsageError ? stderr : stdout);
  return reply->isUsageError ? kUsageError : EXIT_SUCCESS;
}

/// Set for a new instance that this program becomes, with the value "1".
constexpr const char* kRelaunchVariable = "RONDORA_RELAUNCH";

/// Programs that this one launches do not inherit the mark.
SingleInstance::StartedBy takeStartMark() {
  const bool isRelaunch = std::getenv(kRelaunchVariable) != nullptr;
  unsetenv(kRelaunchVariable);
  return isRelaunch ? SingleInstance::StartedBy::itself : SingleInstance::StartedBy::user;
}

/// Checked first because the toolkit aborts without a display.
bool canReachDisplay() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool reachable = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return reachable;
}

/// Signals that end the program; SIGHUP: the terminal or the session's leader is gone.
constexpr int kEndSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// Blocks the end signals, also for later threads, and returns a descriptor that becomes readable when one arrives. A
/// signal that the process inherited as ignored stays ignored.
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

/// The exit status when the program cannot or need not run.
std::optional<int> reasonNotToRun(const CompositionLinux& composition) {
  const auto start = composition.claimedStart();
  if (!start) {
    std::fputs("rondora: the toolkit does not run on X11\n", stderr);
    return kFailure;
  }
  switch (*start) {
    case SingleInstance::Start::unanswered:  // which is logged
      return kFailure;
    case SingleInstance::Start::handedOver:
      std::puts("rondora: already running");
      return EXIT_SUCCESS;
    case SingleInstance::Start::first:
      break;
  }
  return std::nullopt;
}

/// Asks both at once, so that the start waits for one silence at most.
void hideSilentBuses(rondora::Log& log) {
  using rondora::desktop::MessageBus;
  const auto doesAnswer = [](MessageBus bus) {
    return rondora::desktop::doesBusAnswer(bus, rondora::desktop::PosixProcessEnvironment(),
                                           rondora::desktop::kMaxBusSilence);
  };
  auto system = std::async(std::launch::async, doesAnswer, MessageBus::system);
  const bool hasSession = doesAnswer(MessageBus::session);
  if (!system.get()) {
    log.error("the system bus does not answer; running without it");
    rondora::desktop::hideBus(MessageBus::system);
  }
  if (!hasSession) {
    log.error("the session bus does not answer; running without it");
    rondora::desktop::hideBus(MessageBus::session);
  }
}

/// Ends the process with that status when its orderly end takes too long.
void limitToolkitEnd(int status) {
  std::thread([status] {
    std::this_thread::sleep_for(kMaxToolkitEnd);
    _exit(status);
  }).detach();
}

int run(char** argv, int endSignals, rondora::Log& log, rondora::x11::InputGuard& guard,
        SingleInstance::StartedBy startedBy) {
  rondora::ToolkitArguments arguments(argv);
  QApplication application(arguments.count(), arguments.values());
  CompositionLinux composition(application, log, guard, startedBy);
  if (const auto status = reasonNotToRun(composition)) return *status;
  // The signal stays unread, so that every nested event loop ends too.
  QSocketNotifier endRequests(endSignals, QSocketNotifier::Read);
  QObject::connect(&endRequests, &QSocketNotifier::activated, &application, &QApplication::quit);
  running = &composition;
  composition.start();
  std::atexit(handleForeignExit);
  const int status = QApplication::exec();
  startAgain = composition.isRelaunchRequested();
  terminateRunning();
  if (!startAgain) limitToolkitEnd(status);
  return status;
}

void beginTraceIfAsked(rondora::Log& log) {
  const char* wish = std::getenv("RONDORA_TRACE");
  if (wish == nullptr || std::string_view(wish) != "1") return;
  rondora::trace::begin([&log](const std::string& line) { log.standard(line); });
}

/// Replaces the process by a new instance. Returns on failure.
void becomeNewInstance(char** argv) {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kEndSignals) sigaddset(&signals, signal);
  sigprocmask(SIG_UNBLOCK, &signals, nullptr);
  rondora::desktop::showBuses();
  setenv(kRelaunchVariable, "1", 1);
  rondora::desktop::executeOwnImage(argv);
}

}  // namespace

int main(int argc, char** argv) {
  rondora::desktop::openStandardDescriptors();
  if (rondora::desktop::isPictureService(argc, argv)) return rondora::runPictureService(argc, argv);
  std::signal(SIGPIPE, SIG_IGN);
  if (rondora::x11::isGuard(argv)) rondora::x11::runGuard(rondora::x11::kGuardDescriptor, argv + 1);
  if (argc > 1) {
    if (const auto status = replyToArguments(argc, argv)) return *status;
  }
  const auto mark = takeStartMark();
  rondora::x11::InputGuard guard(argv);
  const auto startedBy = guard.followsAHang() ? SingleInstance::StartedBy::itself : mark;
  rondora::desktop::SystemClock clock;
  rondora::desktop::JournalLog systemLog;
  rondora::RepeatLimit log(systemLog, clock);
  const rondora::desktop::GlibMessages glibMessages(log);
  if (guard.followsAHang()) log.error("the main loop hung while it held keys; the program was started again");
  beginTraceIfAsked(systemLog);
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
  hideSilentBuses(log);
  const int status = run(argv, endSignals, log, guard, startedBy);
  if (startAgain) becomeNewInstance(argv);
  return status;
}
