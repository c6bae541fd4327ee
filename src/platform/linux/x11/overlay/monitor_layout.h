#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/pixel_rect.h"

// Monitors and the space that desktop panels reserve on them, in pixels of the root window.

namespace rondora::x11 {

/// Space that a panel reserves along the edges of the root window; start and end are inclusive.
struct Strut {
  struct Side {
    int thickness = 0;
    int start = 0;
    int end = 0;
  };
  Side left;
  Side right;
  Side top;
  Side bottom;

  bool isEmpty() const {
    return left.thickness <= 0 && right.thickness <= 0 && top.thickness <= 0 && bottom.thickness <= 0;
  }

  /// From the twelve values of _NET_WM_STRUT_PARTIAL or the four of _NET_WM_STRUT, which mean whole edges.
  static Strut fromProperty(std::span<const std::uint32_t> values);
};

/// The sources for the free part of a monitor, the most reliable first.
struct WorkAreas {
  /// One rectangle per monitor, as some window managers publish; they know panels that are part of the desktop shell.
  std::vector<PixelRect> ofMonitors;
  std::vector<Strut> struts;
  /// _NET_WORKAREA of the current desktop, one rectangle for all monitors together: used when there is only one monitor
  /// or no window has a strut.
  std::optional<PixelRect> ofDesktop;
};

/// Each rectangle is four values: x, y, width and height.
std::vector<PixelRect> rectsFromProperty(std::span<const std::uint32_t> values);

/// The part of the monitor that panels leave free; the whole monitor when they leave nothing.
PixelRect visibleFrame(const PixelRect& monitor, const PixelRect& root, const WorkAreas& areas);

}  // namespace rondora::x11
