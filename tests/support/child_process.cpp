#include "support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

#include "support/wait.h"

namespace rondora::live {
namespace {

int exitStatus(int waitStatus) { return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : 128 + WTERMSIG(waitStatus); }

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

std::vector<std::string> mergedEnvironment(const std::map<std::string, std::string>& added) {
  std::vector<std::string> result;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text = *entry;
    if (!added.contains(text.substr(0, text.find('=')))) result.push_back(text);
  }
  for (const auto& [name, value] : added) result.push_back(name + "=" + value);
  return result;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments,
                           const std::map<std::string, std::string>& environment, int inheritedDescriptor) {
  std::vector<std::string> argumentTexts = arguments;
  std::vector<std::string> environmentTexts = mergedEnvironment(environment);
  const auto argumentPointers = pointers(argumentTexts);
  const auto environmentPointers = pointers(environmentTexts);
  pid_ = fork();
  if (pid_ < 0) throw std::runtime_error("cannot start " + arguments.front());
  if (pid_ > 0) return;
  // Only what is safe between fork and exec from here on.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (inheritedDescriptor >= 0) fcntl(inheritedDescriptor, F_SETFD, 0);
  execvpe(argumentPointers[0], argumentPointers.data(), environmentPointers.data());
  _exit(127);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(std::exchange(other.pid_, -1)), status_(other.status_) {}

// Some window managers let a request to end pass while they are busy.
ChildProcess::~ChildProcess() {
  if (!isRunning()) return;
  terminate();
  if (waitUntil([this] { return !isRunning(); }, std::chrono::seconds(2))) return;
  kill(pid_, SIGKILL);
  wait();
}

bool ChildProcess::isRunning() {
  if (pid_ < 0) return false;
  int status = 0;
  if (waitpid(pid_, &status, WNOHANG) == 0) return true;
  status_ = exitStatus(status);
  pid_ = -1;
  return false;
}

int ChildProcess::wait() {
  int status = 0;
  if (pid_ >= 0 && waitpid(pid_, &status, 0) == pid_) status_ = exitStatus(status);
  pid_ = -1;
  return status_;
}

void ChildProcess::terminate() {
  if (pid_ >= 0) kill(pid_, SIGTERM);
}

}  // namespace rondora::live
