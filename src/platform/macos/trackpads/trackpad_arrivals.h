#pragma once

#include <IOKit/IOKitLib.h>

#include <functional>

#include "base/observable.h"

namespace rondora::macos {

/// The I/O registry's notifications of trackpads that were connected. Main thread.
class TrackpadArrivals {
 public:
  /// `arrived` may destroy this object.
  explicit TrackpadArrivals(std::function<void()> arrived);
  ~TrackpadArrivals();
  TrackpadArrivals(const TrackpadArrivals&) = delete;
  TrackpadArrivals& operator=(const TrackpadArrivals&) = delete;

 private:
  static void handle(void* context, io_iterator_t devices);

  std::function<void()> arrived_;
  IONotificationPortRef port_;
  Subscription source_;
  io_iterator_t devices_ = 0;
};

}  // namespace rondora::macos
