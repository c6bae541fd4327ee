#pragma once

#include <optional>
#include <string_view>

#include "platform/macos/conversions/property_list.h"
#include "platform/symbolic_hot_keys.h"

namespace rondora::macos {

/// Where the user's settings hold the system's own shortcuts.
inline constexpr std::string_view kSymbolicHotKeysSuite = "com.apple.symbolichotkeys";
inline constexpr std::string_view kSymbolicHotKeysKey = "AppleSymbolicHotKeys";

/// An entry of these settings, which map the shortcut's number to it.
std::optional<SymbolicHotKey> symbolicHotKey(const PropertyList& settings, int number);

}  // namespace rondora::macos
