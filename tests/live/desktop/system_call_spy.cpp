#include "live/desktop/system_call_spy.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <stdexcept>
#include <utility>

namespace rondora::desktop {
namespace {

SystemCallSpy* current = nullptr;

void countCall() {
  if (current && current->killingCall > 0 && --current->killingCall == 0) raise(SIGKILL);
}

bool mustFail(const std::string& call) {
  if (!current || current->failingCall != call || current->failuresLeft-- <= 0) return false;
  errno = current->error;
  return true;
}

void note(const std::string& call) {
  if (current && (current->calls.empty() || current->calls.back() != call)) current->calls.push_back(call);
}

}  // namespace

SystemCallSpy::SystemCallSpy(std::string failing, int withError) : failingCall(std::move(failing)), error(withError) {
  current = this;
}

SystemCallSpy::~SystemCallSpy() { current = nullptr; }

Ending runUntilCall(int number, const std::function<void()>& action) {
  const pid_t process = fork();
  if (process == 0) {
    SystemCallSpy spy;
    spy.killingCall = number;
    action();
    _exit(0);
  }
  int status = 0;
  if (process < 0 || waitpid(process, &status, 0) != process) throw std::runtime_error("no child process");
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return Ending::cut;
  constexpr int kFewestCalls = 6;  // create, set the mode, write, flush, rename, flush the folder
  if (number <= kFewestCalls) throw std::runtime_error("the child made too few calls");
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return Ending::completed;
  throw std::runtime_error("the child failed in another way");
}

}  // namespace rondora::desktop

using namespace rondora::desktop;

extern "C" int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  if ((flags & O_CREAT) != 0) countCall();
  if ((flags & O_CREAT) != 0 && mustFail("create")) return -1;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" int mkdir(const char* path, mode_t mode) noexcept {
  countCall();
  return static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

extern "C" int fchmod(int descriptor, mode_t mode) noexcept {
  countCall();
  return static_cast<int>(syscall(SYS_fchmod, descriptor, mode));
}

extern "C" ssize_t sendfile(int to, int from, off_t* offset, size_t count) noexcept {
  countCall();
  return static_cast<ssize_t>(syscall(SYS_sendfile, to, from, offset, count));
}

extern "C" ssize_t write(int descriptor, const void* bytes, size_t count) {
  countCall();
  if (current && descriptor > STDERR_FILENO) {
    if (mustFail("write")) return -1;
    if (current->interruptsWrites) {
      if (current->writesSoFar++ % 2 == 0) {
        errno = EINTR;
        return -1;
      }
      count = std::min<size_t>(count, 3);
    }
    note("write");
  }
  return static_cast<ssize_t>(syscall(SYS_write, descriptor, bytes, count));
}

extern "C" int fsync(int descriptor) {
  countCall();
  struct stat status {};
  const bool isFolder = fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
  const std::string call = isFolder ? "fsync folder" : "fsync file";
  if (mustFail(call)) return -1;
  note(call);
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" int rename(const char* from, const char* to) noexcept {
  countCall();
  if (mustFail("rename")) return -1;
  note("rename");
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
