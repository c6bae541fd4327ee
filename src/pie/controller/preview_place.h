#pragma once

#include "base/geometry.h"

namespace rondora {

/// The surroundings of a preview of the highlighted sector. In the coordinate space of the screens, points.
struct PreviewSurroundings {
  /// The square around the ring, which the preview avoids.
  Rect ring;
  /// The middle of the sector's rim.
  Point sector;
  /// The usable part of the ring's screen, which contains the preview.
  Rect screen;
};

/// The top left corner for a preview of `size`: beside the ring, on the sector's side if there is room and level with
/// the sector; else below or above the ring. Without room anywhere it covers the ring; a
/// preview larger than the screen starts at the screen's corner.
Point previewCorner(const PreviewSurroundings& surroundings, Size size);

}  // namespace rondora
