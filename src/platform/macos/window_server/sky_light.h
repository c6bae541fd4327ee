#pragma once

namespace rondora::macos {

/// The private library of the window server.
inline constexpr const char* kSkyLightPath = "/System/Library/PrivateFrameworks/SkyLight.framework/SkyLight";

}  // namespace rondora::macos
