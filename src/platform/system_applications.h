#pragma once

#include <string_view>

// Applications that system actions open by their path on macOS. Another platform answers the same paths with what its
// desktop offers.

namespace rondora::system_applications {

/// The overview of all windows.
inline constexpr std::string_view kMissionControl = "/System/Applications/Mission Control.app";
inline constexpr std::string_view kScreenSaver = "/System/Library/CoreServices/ScreenSaverEngine.app";

}  // namespace rondora::system_applications
