#pragma once

#include <optional>

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

}  // namespace rondora
