#pragma once

#include <cstdint>

// Names and numbers of the accessibility bus (at-spi2-core 2.46, xml/*.xml and atspi/atspi-constants.h).

namespace rondora::accessibility {

inline constexpr const char* kRegistry = "org.a11y.atspi.Registry";
inline constexpr const char* kRootPath = "/org/a11y/atspi/accessible/root";
inline constexpr const char* kCachePath = "/org/a11y/atspi/cache";
inline constexpr const char* kNullPath = "/org/a11y/atspi/null";
inline constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
inline constexpr const char* kApplication = "org.a11y.atspi.Application";
inline constexpr const char* kCache = "org.a11y.atspi.Cache";
inline constexpr const char* kSocket = "org.a11y.atspi.Socket";
inline constexpr const char* kObjectEvents = "org.a11y.atspi.Event.Object";

namespace role {
inline constexpr std::uint32_t kLabel = 29;
inline constexpr std::uint32_t kStatusBar = 54;
inline constexpr std::uint32_t kApplication = 75;
inline constexpr std::uint32_t kNotification = 101;
}  // namespace role

// Bits of a state set.
namespace state {
inline constexpr std::uint32_t kEnabled = 1U << 8;
inline constexpr std::uint32_t kSensitive = 1U << 24;
inline constexpr std::uint32_t kShowing = 1U << 25;
inline constexpr std::uint32_t kVisible = 1U << 30;
}  // namespace state

}  // namespace rondora::accessibility
