#pragma once

#include <QPoint>
#include <optional>

#include "base/geometry.h"

struct xcb_connection_t;

namespace rondora {

/// The toolkit's X connection; the toolkit owns it.
struct QtX11Access {
  xcb_connection_t* connection = nullptr;
  int screenNumber = 0;
};

/// Nothing when the toolkit does not run on X. Needs the application object.
std::optional<QtX11Access> qtX11Access();

/// Pixels per point of the toolkit's primary screen. Main thread.
double qtPixelsPerPoint();

/// Converts screen coordinates (points) to the toolkit's. The toolkit keeps the origin of each screen in pixels, so the
/// two differ on scaled screens other than the first. Main thread.
QPoint qtPosition(Point point);

/// True when a compositor runs on the toolkit's X screen, so that windows may be transparent. False without X.
bool qtIsComposited();

}  // namespace rondora
