#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {

/// Whole messages over a stream socket. Any one thread.
class MessageChannel {
 public:
  /// Without a time the wait is unlimited.
  using Deadline = std::optional<std::chrono::steady_clock::time_point>;

  MessageChannel() = default;
  /// Every wait ends when `interruption`, if any, becomes readable.
  explicit MessageChannel(FileDescriptor socket, int interruption = -1)
      : socket_(std::move(socket)), interruption_(interruption) {}

  bool isOpen() const { return socket_.isOpen(); }
  /// False when the peer is gone, at the deadline, and on interruption; the channel is then of no more use.
  bool send(std::string_view message, Deadline deadline);
  /// Nothing in the same cases, and for a message longer than kMaxMessage.
  std::optional<std::string> receive(Deadline deadline);

 private:
  /// Bytes: the pixels of the largest icon that a ring shows, with room to spare.
  static constexpr std::size_t kMaxMessage = std::size_t{64} << 20;

  bool waitFor(short events, Deadline deadline) const;
  bool sendAll(const char* bytes, std::size_t count, Deadline deadline);
  bool receiveAll(char* bytes, std::size_t count, Deadline deadline);

  FileDescriptor socket_;
  int interruption_ = -1;
};

}  // namespace rondora::desktop
