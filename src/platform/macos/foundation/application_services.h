#pragma once

namespace rondora::macos {

/// Holds functions that its headers do not declare.
inline constexpr const char* kApplicationServicesPath =
    "/System/Library/Frameworks/ApplicationServices.framework/ApplicationServices";

}  // namespace rondora::macos
