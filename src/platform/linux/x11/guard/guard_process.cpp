#include "platform/linux/x11/guard/guard_process.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "base/owned.h"
#include "platform/linux/desktop/journal_log.h"
#include "platform/linux/desktop/own_image.h"
#include "platform/linux/x11/typing/xtest_keyboard.h"

namespace rondora::x11 {
namespace {

// Silence is counted in slices of the guard's own running time: while the machine is suspended, or the guard gets no
// processor, neither does the program, and no more than one slice passes.
constexpr int kSliceMilliseconds = 100;
constexpr int kMaxSilentSlices = 20;

constexpr int kDeathMilliseconds = 5000;

constexpr int kMaxRestarts = 3;
constexpr long kRestartPeriodSeconds = 60;

// The server may still have requests of the dead program queued.
constexpr int kPasses = 3;
constexpr timespec kPause{0, 50'000'000};

/// A signal that ends or suspends the program goes to its whole process group; the guard must outlast the program.
constexpr std::array kGroupSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP, SIGPIPE};

class IgnoredSignals {
 public:
  IgnoredSignals() {
    for (std::size_t i = 0; i < kGroupSignals.size(); ++i) before_[i] = std::signal(kGroupSignals[i], SIG_IGN);
  }
  /// For the program that takes the place of the guard.
  void restore() const {
    for (std::size_t i = 0; i < kGroupSignals.size(); ++i) std::signal(kGroupSignals[i], before_[i]);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
  }

 private:
  std::array<sighandler_t, kGroupSignals.size()> before_{};
};

enum class End { inOrder, death, hang };

/// The program, as its guard sees it.
class Program {
 public:
  explicit Program(int descriptor) : descriptor_(descriptor) {
    ucred maker{};
    socklen_t size = sizeof maker;
    if (getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &maker, &size) != 0) return;
    id_ = maker.pid;
    process_ = static_cast<int>(syscall(SYS_pidfd_open, id_, 0));  // the C library declares it without C linkage
  }

  End waitForEnd() {
    int silentSlices = 0;
    bool holdsGrab = false;
    while (silentSlices < kMaxSilentSlices) {
      pollfd socket{descriptor_, POLLIN, 0};
      const int ready = poll(&socket, 1, holdsGrab ? kSliceMilliseconds : -1);
      if (ready < 0) continue;  // interrupted
      silentSlices = ready == 0 && !isTraced() ? silentSlices + 1 : 0;
      if (ready == 0) continue;
      const auto message = read();
      if (!message) return End::death;
      if (*message == GuardMessage::endsInOrder) return End::inOrder;
      holdsGrab = *message == GuardMessage::beat;
    }
    return End::hang;
  }

  /// Returns once its connections are closed.
  void kill() const {
    if (process_ < 0) {
      ::kill(id_, SIGKILL);
      return;
    }
    syscall(SYS_pidfd_send_signal, process_, SIGKILL, nullptr, 0);
    pollfd death{process_, POLLIN, 0};
    poll(&death, 1, kDeathMilliseconds);
  }

 private:
  /// The latest message; nothing when the program has died.
  std::optional<GuardMessage> read() const {
    std::array<char, 64> messages{};
    const ssize_t count = ::read(descriptor_, messages.data(), messages.size());
    if (count <= 0) return std::nullopt;
    return static_cast<GuardMessage>(messages[static_cast<std::size_t>(count) - 1]);
  }

  /// A debugger may stop the program for as long as it likes.
  bool isTraced() const {
    std::ifstream status("/proc/" + std::to_string(id_) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("TracerPid:")) return line.find_first_of("123456789") != std::string::npos;
    }
    return false;
  }

  int descriptor_;
  pid_t id_ = 0;
  int process_ = -1;
};

void releaseKeys() {
  const UniqueCPtr<xcb_connection_t, xcb_disconnect> connection(xcb_connect(nullptr, nullptr));
  if (xcb_connection_has_error(connection.get()) != 0) return;
  XTestKeyboard keyboard(connection.get());
  if (!keyboard.available()) return;
  for (int pass = 0; pass < kPasses; ++pass) {
    if (pass > 0) nanosleep(&kPause, nullptr);
    keyboard.releaseAll();
  }
}

/// Counts this restart; false when there were enough in the present minute.
bool mayRestart() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  int count = 0;
  long begin = 0;
  const char* earlier = std::getenv(kRestartsVariable);
  const bool isKnown = earlier != nullptr && std::sscanf(earlier, "%d %ld", &count, &begin) == 2;
  if (!isKnown || now.tv_sec - begin >= kRestartPeriodSeconds) {
    count = 0;
    begin = now.tv_sec;
  }
  if (count >= kMaxRestarts) return false;
  return setenv(kRestartsVariable, (std::to_string(count + 1) + ' ' + std::to_string(begin)).c_str(), 1) == 0;
}

}  // namespace

bool isGuard(char** arguments) { return *arguments != nullptr && std::string_view(*arguments) == kGuardName; }

void runGuard(int descriptor, char** arguments) {
  const IgnoredSignals signals;
  prctl(PR_SET_NAME, kGuardName);
  Program program(descriptor);
  const End end = program.waitForEnd();
  if (end == End::inOrder) _exit(0);
  if (end == End::hang) program.kill();
  releaseKeys();
  if (end != End::hang) _exit(0);
  if (mayRestart()) {
    signals.restore();
    close(descriptor);
    desktop::executeOwnImage(arguments);
  }
  desktop::JournalLog().error("the main loop hung too often; the program is not started again");
  _exit(0);
}

}  // namespace rondora::x11
