#include "platform/linux/desktop/started_processes.h"

#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

namespace rondora::desktop {

void StartedProcesses::add(std::string_view application, std::int32_t process) {
  Last& last = last_.insert_or_assign(std::string(application), Last{process, StartedProcess::unknown}).first->second;
  if (process == 0) return;
  FileDescriptor descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
  if (!descriptor.isOpen()) return;
  last.state = StartedProcess::runs;
  const auto child = children_.insert(children_.end(), {std::string(application), process, std::move(descriptor), {}});
  child->ended = watchReadable_(child->descriptor.get(), [this, child] { reap(child); });
}

StartedProcess StartedProcesses::state(std::string_view application) const {
  const auto last = last_.find(application);
  return last == last_.end() ? StartedProcess::unknown : last->second.state;
}

void StartedProcesses::reap(std::list<Child>::iterator child) {
  siginfo_t end{};
  if (waitid(P_PID, static_cast<id_t>(child->process), &end, WEXITED | WNOHANG) == 0 && end.si_pid == 0) return;
  Last& last = last_[child->application];
  if (last.process == child->process) {
    const bool succeeded = end.si_code == CLD_EXITED && end.si_status == EXIT_SUCCESS;
    last.state = succeeded ? StartedProcess::succeeded : StartedProcess::failed;
  }
  children_.erase(child);
}

}  // namespace rondora::desktop
