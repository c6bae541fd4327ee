#include "live/desktop/cut_process.h"

#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace rondora::desktop {
namespace {

constexpr int kSystemCallStop = SIGTRAP | 0x80;  // with PTRACE_O_TRACESYSGOOD

[[noreturn]] void failed(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

[[noreturn]] void runTraced(const std::function<void()>& action) {
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(2);
  raise(SIGSTOP);
  action();
  _exit(0);
}

int waitFor(pid_t process) {
  int status = 0;
  if (waitpid(process, &status, 0) != process) failed("waitpid");
  return status;
}

/// Resumes until the next stop and returns its wait status.
int resume(pid_t process, int signal) {
  if (ptrace(PTRACE_SYSCALL, process, nullptr, signal) != 0) failed("ptrace");
  return waitFor(process);
}

void killAndReap(pid_t process) {
  kill(process, SIGKILL);
  while (!WIFSIGNALED(waitFor(process))) {
  }
}

}  // namespace

Ending runUntilStop(int stop, const std::function<void()>& action) {
  const pid_t process = fork();
  if (process < 0) failed("fork");
  if (process == 0) runTraced(action);
  if (!WIFSTOPPED(waitFor(process))) throw std::runtime_error("the child cannot be traced");
  if (ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) failed("ptrace");

  int stops = 0;
  int signal = 0;
  for (;;) {
    const int status = resume(process, signal);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return Ending::completed;
    if (!WIFSTOPPED(status)) throw std::runtime_error("the child failed by itself");
    const bool isSystemCall = WSTOPSIG(status) == kSystemCallStop;
    signal = isSystemCall ? 0 : WSTOPSIG(status);
    if (!isSystemCall || ++stops < stop) continue;
    killAndReap(process);
    return Ending::cut;
  }
}

}  // namespace rondora::desktop
