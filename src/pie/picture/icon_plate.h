#pragma once

#include <optional>
#include <span>

#include "base/color.h"
#include "base/display_list.h"

namespace rondora {

/// The colour of the plate between an icon and its backgrounds, judged by the colours of the icon's outline; nothing
/// when the outline is distinct on all.
std::optional<Color> plateFor(std::span<const Color> outline, const IconBackgrounds& backgrounds);

namespace icon_plate {
/// Of the plate's side.
inline constexpr double kCornerRadius = 0.24;
inline constexpr double kIconSide = 0.76;
}  // namespace icon_plate

}  // namespace rondora
