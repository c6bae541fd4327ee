#include "platform/linux/x11/typing/synthetic_key_guard.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "base/owned.h"
#include "platform/linux/x11/typing/xtest_keyboard.h"

namespace rondora::x11 {
namespace {

constexpr char kEndsInOrder = 'e';

// The server may still have requests of the dead program queued.
constexpr int kPasses = 3;
constexpr timespec kPause{0, 50'000'000};

/// True on the exit byte, false on EOF.
bool waitForExitByte(int descriptor) {
  char byte = 0;
  ssize_t count = 0;
  do {
    count = read(descriptor, &byte, 1);
  } while (count < 0 && errno == EINTR);
  return count == 1;
}

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

/// A signal that ends the program goes to its whole process group; the guard must end after the program.
void ignoreTerminationSignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) std::signal(signal, SIG_IGN);
}

[[noreturn]] void guard(int descriptor) {
  ignoreTerminationSignals();
  prctl(PR_SET_NAME, "rondora-keys");
  if (!waitForExitByte(descriptor)) releaseKeys();
  _exit(0);
}

}  // namespace

// Double fork: the guard is reparented and leaves no zombie.
SyntheticKeyGuard::SyntheticKeyGuard() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
  const pid_t child = fork();
  if (child == 0) {
    if (fork() != 0) _exit(0);
    close(ends[1]);
    guard(ends[0]);
  }
  close(ends[0]);
  exitByteEnd_ = ends[1];
  if (child > 0) waitpid(child, nullptr, 0);
}

SyntheticKeyGuard::~SyntheticKeyGuard() {
  if (exitByteEnd_ < 0) return;
  send(exitByteEnd_, &kEndsInOrder, 1, MSG_NOSIGNAL);  // the guard may have been killed
  close(exitByteEnd_);
}

}  // namespace rondora::x11
