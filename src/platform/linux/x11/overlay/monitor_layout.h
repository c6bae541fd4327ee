#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/pixel_rect.h"

// Monitors and what panels keep of them, in pixels of the root window.

namespace rondora::x11 {

/// Space along the edges of the root window that a panel keeps for itself; start and end are inclusive.
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

/// What tells how much of the monitors is free, from the surest to the roughest.
struct WorkAreas {
  /// One rectangle a monitor, as some window managers give them; those know panels that are part of the desktop shell.
  std::vector<PixelRect> ofMonitors;
  std::vector<Strut> struts;
  /// _NET_WORKAREA of the present desktop, one rectangle for all monitors together: of use where there is one monitor
  /// or where no panel keeps anything in a way that others can read.
  std::optional<PixelRect> ofDesktop;
};

/// The four values of each rectangle one after the other.
std::vector<PixelRect> rectsFromProperty(std::span<const std::uint32_t> values);

/// The part of the monitor that panels leave free; the whole monitor when nothing would be left of it.
PixelRect visibleFrame(const PixelRect& monitor, const PixelRect& root, const WorkAreas& areas);

}  // namespace rondora::x11
