#pragma once

namespace rondora::macos {

/// The class of trackpads in the system's registry of devices.
inline constexpr const char* kTrackpadClass = "AppleMultitouchDevice";

}  // namespace rondora::macos
