#pragma once

#include <cstdint>
#include <span>
#include <vector>

// Monitors and what panels keep of them, in pixels of the root window.

namespace rondora::x11 {

struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const PixelRect&, const PixelRect&) = default;

  int right() const { return x + width; }
  int bottom() const { return y + height; }
};

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

  /// From the twelve values of _NET_WM_STRUT_PARTIAL or the four of _NET_WM_STRUT, which mean whole edges.
  static Strut fromProperty(std::span<const std::uint32_t> values);
};

/// The monitor without the struts that touch it; the monitor itself when nothing would be left.
PixelRect visibleFrame(const PixelRect& monitor, const PixelRect& root, std::span<const Strut> struts);

}  // namespace rondora::x11
