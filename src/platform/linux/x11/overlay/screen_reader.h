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

/// A piece of the screen as it was when asked for.
class ScreenPiece {
 public:
  /// Queues the request: neither flushes nor waits. `part` lies inside both the root window and `area`.
  ScreenPiece(const X11Connection& connection, const PixelRect& area, const PixelRect& part);
  ~ScreenPiece();
  ScreenPiece(const ScreenPiece&) = delete;
  ScreenPiece& operator=(const ScreenPiece&) = delete;

  /// The pixels of the whole area, of undefined alpha; beyond the root window those at its edge are repeated. Waits for
  /// the server the first time. Nothing when it refused.
  std::optional<PixelBuffer> pixels();
  /// The surface that holds the pixels, for another use; null when none of the area's size does. `pixels` is not called
  /// afterwards.
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
  /// Of the area, where it is larger than what was received.
  std::vector<std::uint32_t> extended_;
};

/// Reads what the screen shows, where that is quick and tells the truth: from a server on this machine, and not from
/// one whose root window is empty because another system shows its windows.
class ScreenReader {
 public:
  ScreenReader(X11Connection& connection, PixelTransport transport);

  PixelTransport transport() const { return transport_; }
  /// Nothing where the screen cannot be read, or would still show a panel of ours.
  std::unique_ptr<ScreenPiece> read(const PixelRect& area) const;
  /// What was beneath the panel is painted again only after a while.
  void panelWentAway() { lastPanel_ = std::chrono::steady_clock::now(); }

 private:
  PixelRect readRoot() const;

  const X11Connection& connection_;
  PixelTransport transport_;
  bool isReadable_;
  /// Kept up to date by events, so that reading does not begin with a question.
  PixelRect root_;
  Subscription rootObserver_;
  std::chrono::steady_clock::time_point lastPanel_{};
};

}  // namespace rondora::x11
