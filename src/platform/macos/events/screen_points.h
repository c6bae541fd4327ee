#pragma once

#include <Foundation/Foundation.h>

#include "base/geometry.h"

namespace rondora::macos {

// Between the coordinates of windows and screens, from the bottom left of the first screen upward, and those of the
// ports.

Point portPoint(NSPoint point);
Rect portRect(NSRect rect);
NSRect screenRect(const Rect& rect);

/// Pixels per point on the screen beneath `point`, which is in the ports' coordinates; elsewhere on the main screen.
double pixelsPerPointAt(Point point);

}  // namespace rondora::macos
