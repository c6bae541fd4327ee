#include "platform/linux/x11/guard/input_guard.h"

#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <utility>

namespace rondora::x11 {
namespace {

std::vector<std::string> texts(char** list) {
  std::vector<std::string> result;
  for (; *list != nullptr; ++list) result.emplace_back(*list);
  return result;
}

/// Valid as long as `texts`.
std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

/// The guard's end comes first.
std::optional<std::pair<int, int>> makeSocket() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return std::nullopt;
  return std::pair(ends[0], ends[1]);
}

}  // namespace

// Double fork: the guard is reparented and leaves no zombie.
InputGuard::InputGuard(char** arguments) : arguments_(texts(arguments)), environment_(texts(environ)) {
  followsAHang_ = std::getenv(kRestartsVariable) != nullptr;
  if (const auto ends = makeSocket()) {
    const pid_t child = fork();
    if (child == 0) {
      if (fork() != 0) _exit(0);
      close(ends->second);
      runGuard(ends->first, arguments);
    }
    close(ends->first);
    socket_ = ends->second;
    if (child > 0) waitpid(child, nullptr, 0);
  }
  unsetenv(kRestartsVariable);
}

InputGuard::~InputGuard() {
  if (socket_ < 0) return;
  send(GuardMessage::endsInOrder);
  close(socket_);
}

// The guard may have been killed. A stopped guard lets the socket fill up.
void InputGuard::send(GuardMessage message) const {
  const char byte = static_cast<char>(message);
  if (socket_ >= 0) ::send(socket_, &byte, 1, MSG_NOSIGNAL | MSG_DONTWAIT);
}

// After a fork a program with threads may only replace its process image, and a copy of the X connection's descriptor
// would keep its grabs alive beyond the program.
void InputGuard::replace() {
  if (socket_ >= 0) close(std::exchange(socket_, -1));
  if (child_ > 0) waitpid(std::exchange(child_, 0), nullptr, WNOHANG);
  const auto ends = makeSocket();
  if (!ends) return;
  std::vector<std::string> words{kGuardName};
  words.insert(words.end(), arguments_.begin(), arguments_.end());
  sigset_t none;
  sigemptyset(&none);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends->first, kGuardDescriptor);
  posix_spawn_file_actions_addclosefrom_np(&actions, kGuardDescriptor + 1);
  const int error = posix_spawn(&child_, "/proc/self/exe", &actions, &attributes, pointers(words).data(),
                                pointers(environment_).data());
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  close(ends->first);
  socket_ = ends->second;
  if (error != 0) close(std::exchange(socket_, -1));
}

}  // namespace rondora::x11
