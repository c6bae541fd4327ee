#pragma once

#include <libudev.h>

#include <functional>
#include <set>

#include "base/observable.h"
#include "base/owned.h"
#include "platform/linux/evdev/trackpad_nodes.h"
#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {

/// Announces trackpads that were connected (udev) and those that this process may read from now on (changes of their
/// nodes). Without such changes it does nothing. Main thread.
class TrackpadArrivals {
 public:
  /// Calls `readable` on the main loop whenever the descriptor is readable, until the result is destroyed.
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  TrackpadArrivals(InputFolders folders, const WatchReadable& watchReadable, std::function<void()> arrived);

 private:
  void watchNodes() const;
  void udevReported();
  void nodesChanged();
  /// Announces if there is a readable trackpad that was not there at the last call, or `isConnected`.
  void review(bool isConnected);
  std::set<unsigned> readableNumbers() const;

  InputFolders folders_;
  std::function<void()> arrived_;
  UniqueCPtr<udev, udev_unref> udev_;
  UniqueCPtr<udev_monitor, udev_monitor_unref> monitor_;
  FileDescriptor nodes_;
  std::set<unsigned> readable_;
  Subscription monitorWatch_;
  Subscription nodesWatch_;
};

}  // namespace rondora::desktop
