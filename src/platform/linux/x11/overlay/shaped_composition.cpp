#include "platform/linux/x11/overlay/shaped_composition.h"

#include <xcb/shape.h>

#include <algorithm>
#include <cstddef>

#include "base/pixels.h"

namespace rondora::x11 {
namespace {

// Without a snapshot a pixel is either visible or not, and translucent ones are blended with this colour.
constexpr std::uint32_t kHardEdge = 0xFF15161A;
constexpr std::uint8_t kHardEdgeAlpha = 0x90;
constexpr std::uint8_t kSoftEdgeAlpha = 1;

bool sameRectangle(const xcb_rectangle_t& a, const xcb_rectangle_t& b) {
  return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

}  // namespace

void ShapedComposition::blend(const PixelBuffer& target, const PixelRect& rect) const {
  for (int y = rect.y; y < rect.bottom(); ++y) {
    std::uint32_t* row = target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride;
    if (!snapshot_) {
      std::transform(row + rect.x, row + rect.right(), row + rect.x,
                     [](std::uint32_t pixel) { return pixelOver(pixel, kHardEdge); });
      continue;
    }
    const std::uint32_t* beneath = snapshot_->pixels + static_cast<std::ptrdiff_t>(y) * snapshot_->stride;
    std::transform(beneath + rect.x, beneath + rect.right(), row + rect.x, row + rect.x,
                   [](std::uint32_t opaque, std::uint32_t pixel) { return pixelOver(pixel, opaque); });
  }
}

void ShapedComposition::applyShape(const X11Connection& connection, xcb_window_t window, const PixelSurface& surface) {
  surface.findOpaqueParts(snapshot_ ? kSoftEdgeAlpha : kHardEdgeAlpha, nextShape_);
  if (isShaped_ && std::ranges::equal(shape_, nextShape_, sameRectangle)) return;
  isShaped_ = true;
  shape_.swap(nextShape_);
  xcb_shape_rectangles(connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_YX_SORTED, window,
                       0, 0, static_cast<std::uint32_t>(shape_.size()), shape_.data());
}

// A compositor re-reads a window whose shape is set, even to none, so an unshaped window is left alone.
void ShapedComposition::removeShape(const X11Connection& connection, xcb_window_t window) {
  if (!isShaped_) return;
  isShaped_ = false;
  xcb_shape_mask(connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window, 0, 0, XCB_PIXMAP_NONE);
}

}  // namespace rondora::x11
