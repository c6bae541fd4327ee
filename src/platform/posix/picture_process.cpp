#include "platform/posix/picture_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <optional>

#include "platform/posix/picture_messages.h"
#include "platform/posix/picture_service.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): not every system declares it

namespace rondora::desktop {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

/// Loading the program from a slow disk.
constexpr seconds kStartTimeout{20};
/// One picture, however busy the machine is.
constexpr seconds kPictureTimeout{5};

/// When a process that has decoded others ends within this time, pictures before this one may have used up its memory,
/// or another program has ended it.
constexpr seconds kInnocence{1};

/// Owns the settings of one spawned process.
class SpawnSettings {
 public:
  explicit SpawnSettings(int childEnd) {
    posix_spawn_file_actions_init(&actions);
    // First: it may be one of the three that are opened anew.
    posix_spawn_file_actions_adddup2(&actions, childEnd, kPictureServiceDescriptor);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    // Messages of the readers, of which a hostile picture may cause any number.
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    sigset_t all;
    sigset_t none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }
  ~SpawnSettings() {
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  posix_spawn_file_actions_t actions{};
  posix_spawnattr_t attributes{};
};

void closeOnExec(int descriptor) { fcntl(descriptor, F_SETFD, FD_CLOEXEC); }

PictureResult without(PictureResult::Outcome outcome) { return {.outcome = outcome, .bytes = {}}; }

}  // namespace

PictureProcess::PictureProcess(std::string program) : program_(std::move(program)) {
  int ends[2];
  if (pipe(ends) != 0) return;
  interruption_ = FileDescriptor(ends[0]);
  interrupter_ = FileDescriptor(ends[1]);
  for (const int end : ends) closeOnExec(end);
}

PictureResult PictureProcess::decode(const PictureRequest& request) {
  if (process_ != 0) {
    const auto begin = steady_clock::now();
    PictureResult result = ask(request);
    const bool mayBeInnocent = steady_clock::now() - begin < kInnocence;
    if (result.outcome != PictureResult::Outcome::gaveUp || !mayBeInnocent) return result;
  }
  return start() ? ask(request) : without(PictureResult::Outcome::unavailable);
}

PictureResult PictureProcess::ask(const PictureRequest& request) {
  const auto deadline = steady_clock::now() + kPictureTimeout;
  if (channel_.send(packed(request), deadline)) {
    if (const auto message = channel_.receive(deadline)) {
      if (auto result = unpackedResult(*message, request)) return *std::move(result);
    }
  }
  end();
  return without(PictureResult::Outcome::gaveUp);
}

bool PictureProcess::start() {
  end();
  int ends[2];
  if (!interruption_.isOpen() || socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) return false;
  for (const int end : ends) closeOnExec(end);
  const FileDescriptor childEnd(ends[1]);
  channel_ = MessageChannel(FileDescriptor(ends[0]), interruption_.get());
  // The service's first message says that it is ready.
  if (spawn(childEnd.get()) && channel_.receive(steady_clock::now() + kStartTimeout)) return true;
  end();
  return false;
}

bool PictureProcess::spawn(int childEnd) {
  const SpawnSettings settings(childEnd);
  std::string name(kPictureServiceName);
  const std::array<char*, 2> arguments = {name.data(), nullptr};
  if (posix_spawn(&process_, program_.c_str(), &settings.actions, &settings.attributes, arguments.data(), environ) ==
      0) {
    return true;
  }
  process_ = 0;
  return false;
}

void PictureProcess::end() {
  channel_ = {};
  if (process_ == 0) return;
  kill(process_, SIGKILL);
  while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
  }
  process_ = 0;
}

void PictureProcess::interrupt() {
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = write(interrupter_.get(), &byte, 1);
}

}  // namespace rondora::desktop
