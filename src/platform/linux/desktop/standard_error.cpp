#include "platform/linux/desktop/standard_error.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <string>

namespace rondora::desktop {
namespace {

constexpr std::size_t kMaxLine = PIPE_BUF - 1;
constexpr std::string_view kCut = " [...]";

bool acceptsNow(int descriptor) {
  pollfd writable{descriptor, POLLOUT, 0};
  return ::poll(&writable, 1, 0) == 1 && (writable.revents & (POLLERR | POLLHUP)) == 0;
}

/// At most `kMaxLine` bytes and the line end; no UTF-8 sequence is cut in two.
std::string terminated(std::string_view line) {
  if (line.size() <= kMaxLine) return std::string(line) + '\n';
  std::size_t length = kMaxLine - kCut.size();
  while (length > 0 && (static_cast<unsigned char>(line[length]) & 0xC0) == 0x80) --length;
  return std::string(line.substr(0, length)).append(kCut) + '\n';
}

}  // namespace

void openStandardDescriptors() {
  int opened = STDIN_FILENO;
  while (opened >= 0 && opened <= STDERR_FILENO) opened = ::open("/dev/null", O_RDWR | O_NOCTTY);
  if (opened > STDERR_FILENO) ::close(opened);
}

// An open of /proc/self/fd makes a new file description, so its O_NONBLOCK affects no other process (proc(5)). Sockets
// cannot be opened that way; a regular file would be written from its beginning.
LineOutput::LineOutput(int descriptor) : descriptor_(descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return;
  isSocket_ = S_ISSOCK(status.st_mode);
  mayBlock_ = S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode);
  if (!mayBlock_) return;
  const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
  nonBlocking_ = FileDescriptor(::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

void LineOutput::write(std::string_view line) {
  const std::lock_guard lock(mutex_);
  if (dropped_ > 0 && send(terminated("log: " + std::to_string(dropped_) + " lines dropped"))) dropped_ = 0;
  if (dropped_ > 0 || !send(terminated(line))) ++dropped_;
}

bool LineOutput::send(std::string_view text) const {
  if (mayBlock_ && !nonBlocking_.isOpen() && !acceptsNow(descriptor_)) return false;
  const int target = nonBlocking_.isOpen() ? nonBlocking_.get() : descriptor_;
  ssize_t sent = 0;
  do {
    sent = isSocket_ ? ::send(target, text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL)
                     : ::write(target, text.data(), text.size());
  } while (sent < 0 && errno == EINTR);
  return sent >= 0;
}

}  // namespace rondora::desktop
