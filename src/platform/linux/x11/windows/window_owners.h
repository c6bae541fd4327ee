#pragma once

#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <span>
#include <vector>

#include "platform/linux/x11/windows/window_properties.h"

namespace rondora::x11 {

/// Which application each window belongs to, by the process identifier that the workspace gave it, and when it was
/// active. The workspace notes the windows that it sees; a worker asks about those that it lists itself. Any thread.
class WindowOwners {
 public:
  /// `processIdentifier` is the application's, which may be one of the invented negative ones.
  void note(const WindowInfo& window, std::int32_t processIdentifier);
  /// Forgets the windows that are not among these.
  void forgetOthers(std::span<const WindowInfo> windows);
  /// A window that was not noted belongs to the application of a noted one of the same process and class, else to its
  /// own process.
  std::int32_t ownerOf(const WindowInfo& window) const;

  void noteActivation(xcb_window_t window);
  /// Smaller for windows that were active more recently.
  std::size_t activationRank(xcb_window_t window) const;

  /// The window that was active before the last activation by the program.
  void setActiveBefore(xcb_window_t window);
  xcb_window_t activeBefore() const;

 private:
  struct Owned {
    std::int32_t processIdentifier = 0;
    /// As the system counts processes.
    std::int32_t realProcess = 0;
    WindowIdentity identity;

    bool isLike(const WindowInfo& window) const;
  };

  mutable std::mutex mutex_;
  std::map<xcb_window_t, Owned> windows_;
  /// Most recently active first.
  std::vector<xcb_window_t> activations_;
  xcb_window_t activeBefore_ = XCB_WINDOW_NONE;
};

}  // namespace rondora::x11
