#include "desktop/child_process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "desktop/temporary_folder.h"
#include "desktop/wait.h"

namespace rondora::live {
ChildProcess::ChildProcess(const std::vector<std::string>& arguments,
                           const std::map<std::string, std::string>& environment, int inheritedDescriptor) {
  std::vector<std::string> words{"env"};  // gives its place to the program
  for (const auto& [name, value] : environment) words.push_back(name + "=" + value);
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_ = fork();
  if (pid_ < 0) throw std::runtime_error("cannot start " + arguments.front());
  if (pid_ > 0) return;
  // From here on only async-signal-safe calls, as between any fork and exec.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (inheritedDescriptor >= 0) fcntl(inheritedDescriptor, F_SETFD, 0);
  execvp(pointers.front(), pointers.data());
  _exit(127);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(std::exchange(other.pid_, -1)), status_(other.status_) {}

// Some window managers ignore SIGTERM while they are busy.
ChildProcess::~ChildProcess() {
  if (!isRunning()) return;
  terminate();
  if (waitUntil([this] { return !isRunning(); }, std::chrono::seconds(2))) return;
  kill(pid_, SIGKILL);
  wait();
}

bool ChildProcess::isRunning() {
  reap(WNOHANG);
  return pid_ >= 0;
}

int ChildProcess::wait() {
  reap(0);
  return status_;
}

void ChildProcess::reap(int options) {
  int status = 0;
  if (pid_ < 0 || waitpid(pid_, &status, options) == 0) return;
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  pid_ = -1;
}

bool ChildProcess::areAllThreads(char state) const {
  const std::string wanted = std::string(") ") + state;
  std::error_code error;  // of a process that has ended, also in the middle
  std::filesystem::directory_iterator thread("/proc/" + std::to_string(pid_) + "/task", error);
  for (; !error && thread != std::filesystem::directory_iterator(); thread.increment(error)) {
    const std::string status = readFile(thread->path() / "stat");
    const std::size_t nameEnd = status.rfind(')');
    if (nameEnd == std::string::npos || status.compare(nameEnd, wanted.size(), wanted) != 0) return false;
  }
  return !error;
}

bool ChildProcess::waitForChild(const std::string& program) const {
  const std::string process = "/proc/" + std::to_string(pid_);
  return waitUntil([&] {
    std::istringstream children(readFile(process + "/task/" + std::to_string(pid_) + "/children"));
    for (std::string child; children >> child;) {
      if (readFile("/proc/" + child + "/comm") == program + '\n') return true;
    }
    return false;
  });
}

// The signal is only sent when `kill` returns: the threads may run on for a while.
void ChildProcess::stop() const {
  kill(pid_, SIGSTOP);
  waitUntil([this] { return areAllThreads('T'); });
}

void ChildProcess::terminate() {
  if (pid_ >= 0) kill(pid_, SIGTERM);
}

}  // namespace rondora::live
