#pragma once

#include <xcb/shm.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "base/observable.h"
#include "base/pixel_rect.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/overlay/pixel_surface.h"
#include "platform/picture_rasterizer.h"

namespace rondora::x11 {

/// A snapshot of an area of the screen.
class ScreenSnapshot {
 public:
  /// Queues the request: neither flushes nor waits. `part` lies inside both the root window and `area`.
  ScreenSnapshot(const X11Connection& connection, const PixelRect& area, const PixelRect& part);
  ~ScreenSnapshot();
  ScreenSnapshot(const ScreenSnapshot&) = delete;
  ScreenSnapshot& operator=(const ScreenSnapshot&) = delete;

  /// The pixels of the whole area, of undefined alpha; outside the root window they repeat those at its edge. Waits for
  /// the server the first time. Nothing when the server refused.
  std::optional<PixelBuffer> pixels();
  /// The surface that holds the pixels, for reuse; null when none has the area's size. Do not call `pixels` afterwards.
  std::unique_ptr<PixelSurface> releaseSurface();

 private:
  bool receive();
  void extend();

  const X11Connection& connection_;
  PixelRect area_;
  PixelRect part_;
  std::unique_ptr<PixelSurface> received_;
  xcb_shm_get_image_cookie_t cookie_{};
  bool isPending_ = true;
  /// The whole area, where it extends past the root window.
  std::vector<std::uint32_t> extended_;
};

/// Takes snapshots of the screen where that is fast and correct: from a local server whose root window shows the
/// windows.
class ScreenReader {
 public:
  ScreenReader(X11Connection& connection, PixelTransport transport);

  PixelTransport transport() const { return transport_; }
  /// Null when the screen cannot be read or would still show a panel of ours.
  std::unique_ptr<ScreenSnapshot> read(const PixelRect& area) const;
  /// The area beneath a panel that went away is repainted only after a while.
  void panelWentAway() { lastPanel_ = std::chrono::steady_clock::now(); }

 private:
  PixelRect readRoot() const;

  const X11Connection& connection_;
  PixelTransport transport_;
  bool isReadable_;
  /// Follows events, so that a snapshot needs no round trip before it.
  PixelRect root_;
  Subscription rootObserver_;
  std::chrono::steady_clock::time_point lastPanel_{};
};

}  // namespace rondora::x11
