#include "platform/posix/message_channel.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <limits>

namespace rondora::desktop {
namespace {

using Length = std::uint32_t;

/// For poll(2), rounded up.
int millisecondsUntil(MessageChannel::Deadline deadline) {
  if (!deadline) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - std::chrono::steady_clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
}

bool shouldRetry() { return errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK; }

}  // namespace

bool MessageChannel::waitFor(short events, Deadline deadline) const {
  pollfd waited[] = {{socket_.get(), events, 0}, {interruption_, POLLIN, 0}};
  int ready = 0;
  do {
    ready = poll(waited, 2, millisecondsUntil(deadline));
  } while (ready < 0 && errno == EINTR);
  return ready > 0 && waited[1].revents == 0;
}

bool MessageChannel::sendAll(const char* bytes, std::size_t count, Deadline deadline) {
  while (count > 0) {
    if (!waitFor(POLLOUT, deadline)) return false;
    const ssize_t sent = ::send(socket_.get(), bytes, count, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0 && !shouldRetry()) return false;
    if (sent <= 0) continue;
    bytes += sent;
    count -= static_cast<std::size_t>(sent);
  }
  return true;
}

bool MessageChannel::receiveAll(char* bytes, std::size_t count, Deadline deadline) {
  while (count > 0) {
    if (!waitFor(POLLIN, deadline)) return false;
    const ssize_t received = ::recv(socket_.get(), bytes, count, MSG_DONTWAIT);
    if (received == 0 || (received < 0 && !shouldRetry())) return false;
    if (received < 0) continue;
    bytes += received;
    count -= static_cast<std::size_t>(received);
  }
  return true;
}

bool MessageChannel::send(std::string_view message, Deadline deadline) {
  if (message.size() > kMaxMessage) return false;
  const auto length = static_cast<Length>(message.size());
  return sendAll(reinterpret_cast<const char*>(&length), sizeof length, deadline) &&
         sendAll(message.data(), message.size(), deadline);
}

std::optional<std::string> MessageChannel::receive(Deadline deadline) {
  Length length = 0;
  if (!receiveAll(reinterpret_cast<char*>(&length), sizeof length, deadline) || length > kMaxMessage) {
    return std::nullopt;
  }
  std::string message(length, '\0');
  if (!receiveAll(message.data(), message.size(), deadline)) return std::nullopt;
  return message;
}

}  // namespace rondora::desktop
