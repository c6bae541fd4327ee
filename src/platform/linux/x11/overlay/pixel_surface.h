#pragma once

#include <xcb/shm.h>
#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/pixel_rect.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/picture_rasterizer.h"

namespace rondora::x11 {

enum class PixelTransport { sharedMemory, requests };

/// The fastest way to transfer pixels to this server. Tries one shared page.
PixelTransport bestTransport(const X11Connection& connection);

/// Pixels shared with the server: painted here and copied into a window, or read from a window by the server.
class PixelSurface {
 public:
  /// `width` and `height` in pixels, at least 1. Starts transparent.
  PixelSurface(const X11Connection& connection, PixelTransport transport, int width, int height);
  ~PixelSurface();
  PixelSurface(const PixelSurface&) = delete;
  PixelSurface& operator=(const PixelSurface&) = delete;

  PixelBuffer buffer() const { return {pixels_, width_, height_, width_}; }
  /// Copies `rect`, which lies inside the surface and is not empty, to the same place of the drawable. Not flushed.
  /// Returns the number of the first request.
  std::uint32_t put(xcb_drawable_t target, xcb_gcontext_t context, std::uint8_t depth, const PixelRect& rect);
  /// Has the server copy `part` of a window, which has the surface's size, into the surface; complete when the reply
  /// has arrived. Works with shared memory only.
  xcb_shm_get_image_cookie_t request(xcb_drawable_t source, const PixelRect& part) const;
  /// Collects the pixels of at least that alpha (1 to 255) as rectangles sorted by row.
  void findOpaqueParts(std::uint8_t leastAlpha, std::vector<xcb_rectangle_t>& parts) const;

 private:
  bool share();
  std::uint32_t putBySegment(xcb_drawable_t target, xcb_gcontext_t context, std::uint8_t depth, const PixelRect& rect);
  std::uint32_t putByRequests(xcb_drawable_t target, xcb_gcontext_t context, std::uint8_t depth, const PixelRect& rect);
  std::size_t byteCount() const;

  const X11Connection& connection_;
  int width_;
  int height_;
  std::uint32_t* pixels_ = nullptr;
  xcb_shm_seg_t segment_ = 0;
  std::vector<std::uint32_t> ownPixels_;
  std::vector<std::uint32_t> rows_;
};

}  // namespace rondora::x11
