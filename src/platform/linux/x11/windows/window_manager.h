#pragma once

#include <string_view>

#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Whether a window manager that follows EWMH runs. Two round trips.
bool hasWindowManager(const X11Connection& connection);
/// Whether it runs and lists the atom as supported. Three round trips.
bool managerSupports(const X11Connection& connection, std::string_view atom);

}  // namespace rondora::x11
