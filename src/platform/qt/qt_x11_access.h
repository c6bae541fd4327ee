#pragma once

#include <QPoint>
#include <optional>

#include "base/geometry.h"

struct xcb_connection_t;

namespace rondora {

/// The X connection that the toolkit opened; it closes it, too.
struct QtX11Access {
  xcb_connection_t* connection = nullptr;
  int screenNumber = 0;
};

/// Nothing when the toolkit does not run on X. Needs the application object.
std::optional<QtX11Access> qtX11Access();

/// Pixels of the primary screen for each point of the toolkit's coordinates. Main thread.
double qtPixelsPerPoint();

/// The toolkit's position of a point in the coordinate space of the screens. The toolkit leaves the origin of each
/// screen in pixels, so the two differ on all screens but the first when they are scaled. Main thread.
QPoint qtPosition(Point point);

/// A compositor shows the windows of the toolkit's screen, so that they may be transparent. False where there is no X.
bool qtIsComposited();

}  // namespace rondora
