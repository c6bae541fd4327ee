#include "platform/linux/desktop/lock_file_channel.h"

#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;
using Milliseconds = std::chrono::milliseconds;

constexpr char kReply = '.';
constexpr int kBacklog = 16;
/// A holder that is just starting locks shortly before it listens.
constexpr Milliseconds kConnectTimeout{1000};
constexpr Milliseconds kRetryInterval{20};
constexpr Milliseconds kReplyTimeout{1300};
/// For the user only. The sticky bit protects the files from clean-up (XDG base directories 0.8).
constexpr mode_t kMode = S_ISVTX | S_IRUSR | S_IWUSR;

/// The display without its screen, as a file name: "host:1.0" and "host:1" are the same display.
std::string displayName(std::string display) {
  if (display.starts_with("unix:")) display.erase(0, 4);
  const auto colon = display.rfind(':');
  if (const auto dot = display.rfind('.'); dot != std::string::npos && colon != std::string::npos && dot > colon) {
    display.erase(dot);
  }
  std::replace(display.begin(), display.end(), '/', '_');
  return display;
}

fs::path runtimeFolder(const ProcessEnvironment& environment, const fs::path& fallback) {
  if (const auto value = environment.variable("XDG_RUNTIME_DIR"); value && fs::path(*value).is_absolute())
    return *value;
  return fallback;
}

std::optional<sockaddr_un> socketAddress(const fs::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.native().size() >= sizeof address.sun_path) return std::nullopt;
  std::memcpy(address.sun_path, path.c_str(), path.native().size() + 1);
  return address;
}

FileDescriptor makeSocket(int flags) {
  return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
}

const sockaddr* generic(const sockaddr_un& address) { return reinterpret_cast<const sockaddr*>(&address); }

FileDescriptor connectTo(const fs::path& path) {
  const auto address = socketAddress(path);
  FileDescriptor connection = makeSocket(SOCK_NONBLOCK);
  if (!address || !connection.isOpen()) return {};
  const auto deadline = std::chrono::steady_clock::now() + kConnectTimeout;
  while (::connect(connection.get(), generic(*address), sizeof *address) != 0) {
    // With EAGAIN as many others wait as the holder lets in.
    const bool mayStillWork = errno == ENOENT || errno == ECONNREFUSED || errno == EINTR || errno == EAGAIN;
    if (!mayStillWork || std::chrono::steady_clock::now() >= deadline) return {};
    std::this_thread::sleep_for(kRetryInterval);
  }
  return connection;
}

}  // namespace

LockFileChannel::LockFileChannel(const ProcessEnvironment& environment, const fs::path& fallbackFolder,
                                 WatchReadable watchReadable)
    : watchReadable_(std::move(watchReadable)) {
  const fs::path folder = runtimeFolder(environment, fallbackFolder);
  const std::string name = "rondora-" + displayName(environment.variable("DISPLAY").value_or(""));
  lockFile_ = folder / (name + ".lock");
  socketFile_ = folder / (name + ".socket");
}

LockFileChannel::~LockFileChannel() { release(); }

InstanceChannel::Claim LockFileChannel::claim() {
  if (lock_.isOpen()) return Claim::first;
  std::error_code error;
  fs::create_directories(lockFile_.parent_path(), error);
  FileDescriptor lock(::open(lockFile_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kMode));
  if (!lock.isOpen()) return Claim::unavailable;
  if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) return errno == EWOULDBLOCK ? Claim::taken : Claim::unavailable;
  lock_ = std::move(lock);
  ::fchmod(lock_.get(), kMode);
  if (listen()) return Claim::first;
  release();
  return Claim::unavailable;
}

/// The lock is ours, so an existing socket is stale.
bool LockFileChannel::listen() {
  const auto address = socketAddress(socketFile_);
  FileDescriptor listener = makeSocket(SOCK_NONBLOCK);
  if (!address || !listener.isOpen()) return false;
  ::unlink(socketFile_.c_str());
  if (::bind(listener.get(), generic(*address), sizeof *address) != 0) return false;
  ::chmod(socketFile_.c_str(), kMode);
  if (::listen(listener.get(), kBacklog) != 0) return false;
  listener_ = std::move(listener);
  return true;
}

// Releases the lock last and keeps its file: after an unlink two processes could hold the lock.
void LockFileChannel::release() {
  watch_.reset();
  if (listener_.isOpen()) {
    ::unlink(socketFile_.c_str());
    listener_ = {};
  }
  lock_ = {};
}

bool LockFileChannel::askForSettings() {
  const FileDescriptor connection = connectTo(socketFile_);
  if (!connection.isOpen()) return false;
  pollfd readable{connection.get(), POLLIN, 0};
  if (::poll(&readable, 1, static_cast<int>(kReplyTimeout.count())) != 1) return false;
  char reply = 0;
  return ::read(connection.get(), &reply, 1) == 1 && reply == kReply;
}

void LockFileChannel::serve(SessionRequests requests) {
  requests_ = std::move(requests);
  if (listener_.isOpen()) watch_ = watchReadable_(listener_.get(), [this] { answerAll(); });
}

void LockFileChannel::answerAll() {
  for (;;) {
    const FileDescriptor connection(::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!connection.isOpen()) return;
    if (requests_.showSettings) requests_.showSettings();
    // The requester may have disconnected.
    ::send(connection.get(), &kReply, 1, MSG_NOSIGNAL);
  }
}

}  // namespace rondora::desktop
