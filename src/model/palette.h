#pragma once

#include <array>
#include <string_view>

namespace rondora {

/// Default colours of items, by sector.
inline constexpr std::array<std::string_view, 8> kItemColorPalette = {"#007AFF", "#28CD41", "#5AC8FA", "#8E8E93",
                                                                      "#FF2D55", "#FFCC00", "#AF52DE", "#FF9500"};

inline constexpr std::string_view kDefaultItemColor = kItemColorPalette[0];

}  // namespace rondora
