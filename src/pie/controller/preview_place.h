#pragma once

#include "base/geometry.h"

namespace rondora {

/// What surrounds a preview of the sector under the pointer. In the coordinate space of the screens, points.
struct PreviewSurroundings {
  /// The square around the ring, which the preview stays clear of.
  Rect ring;
  /// The middle of the sector's rim.
  Point sector;
  /// The usable part of the ring's screen, which the preview does not leave.
  Rect screen;
};

/// The top left corner for a preview of `size`: beside the ring, on the sector's side if there is room and level with
/// the sector; else below or above the ring. On a screen with no room for it anywhere it lies over the ring; one larger
/// than the screen begins at the screen's corner.
Point previewCorner(const PreviewSurroundings& surroundings, Size size);

}  // namespace rondora
