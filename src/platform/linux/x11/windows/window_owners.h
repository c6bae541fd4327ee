#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

namespace rondora::x11 {

/// The process of each window when the windows were last listed, front to back, and the window that was active before
/// the last activation. Any thread.
class WindowOwners {
 public:
  struct Owned {
    xcb_window_t window = XCB_WINDOW_NONE;
    std::int32_t processIdentifier = 0;
  };

  void replace(std::vector<Owned> windows) {
    const std::lock_guard lock(mutex_);
    windows_ = std::move(windows);
  }

  void setActiveBefore(xcb_window_t window) {
    const std::lock_guard lock(mutex_);
    activeBefore_ = window;
  }

  xcb_window_t activeBefore() const {
    const std::lock_guard lock(mutex_);
    return activeBefore_;
  }

  std::vector<xcb_window_t> windowsOf(std::int32_t processIdentifier) const {
    const std::lock_guard lock(mutex_);
    std::vector<xcb_window_t> found;
    for (const Owned& owned : windows_) {
      if (owned.processIdentifier == processIdentifier) found.push_back(owned.window);
    }
    return found;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<Owned> windows_;
  xcb_window_t activeBefore_ = XCB_WINDOW_NONE;
};

}  // namespace rondora::x11
