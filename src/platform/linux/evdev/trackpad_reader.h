#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "platform/multitouch.h"
#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {

/// Reads the open trackpads on one thread, which sleeps while none is touched. It starts with the first `open`; a
/// `close` that leaves no trackpad open ends it. No device is grabbed, so pointer and gestures of the desktop stay as
/// they are. Main thread.
class TrackpadReader {
 public:
  /// Names the calling thread.
  using NameThread = void (*)(const std::string& label);

  explicit TrackpadReader(NameThread nameThread = nullptr);
  ~TrackpadReader();
  TrackpadReader(const TrackpadReader&) = delete;
  TrackpadReader& operator=(const TrackpadReader&) = delete;

  /// Begins to deliver the frames of a node to `callback`, on the thread. Without effect when the node cannot be opened
  /// or is no trackpad.
  void open(MultitouchDevice device, const std::filesystem::path& node, MultitouchDevices::FrameCallback callback);
  /// No frame is delivered after this returns.
  void close(MultitouchDevice device);

 private:
  class Trackpad;

  void startThread();
  void endThread();
  void run();
  /// Delivers what has arrived at a device; forgets a device that has vanished. With the lock.
  void read(MultitouchDevice device, bool mayHaveVanished);

  NameThread nameThread_;
  FileDescriptor epoll_;
  /// Readable when the thread is to end.
  FileDescriptor end_;
  std::thread thread_;
  std::mutex mutex_;
  std::map<MultitouchDevice, std::unique_ptr<Trackpad>> trackpads_;
};

}  // namespace rondora::desktop
