#pragma once

namespace rondora {

/// The desktop that the program was built for. Under x11 a session may be one of Wayland all the same.
enum class DesktopKind { x11, macOS };

}  // namespace rondora
