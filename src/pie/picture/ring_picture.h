#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/display_list.h"
#include "model/pie_menu.h"
#include "model/pie_menu_item.h"
#include "pie/geometry/ring_layout.h"
#include "pie/picture/hub_picture.h"

// The ring as a picture: the glass, one layer per sector with two states, and the hub's figure and title.

namespace rondora {

struct RingContents {
  const std::vector<PieMenuItem>& items;
  /// One title per item, for the hub.
  const std::vector<std::string>& titles;
  const std::vector<std::optional<std::string>>& labels;
  HubContents hub = {};
  /// One per item: its application is missing. Items beyond the list are not dimmed.
  std::vector<bool> dimmed = {};
};

Picture makeRingPicture(const PieMenu& menu, const RingLayout& layout, const RingContents& contents);

namespace ring_layers {
inline constexpr std::size_t kBackdrop = 0;
constexpr std::size_t sector(std::size_t index) { return index + 1; }
constexpr std::size_t figure(std::size_t itemCount) { return itemCount + 1; }
constexpr std::size_t title(std::size_t itemCount) { return itemCount + 2; }

inline constexpr double kNormal = 0;
inline constexpr double kHighlighted = 1;
/// The figure layer's state: alone, or above a title.
constexpr double figureState(std::optional<std::size_t> highlighted) { return highlighted ? 1 : 0; }
/// The title layer's state for the highlighted item; state 0 is empty.
constexpr double titleState(std::optional<std::size_t> highlighted) {
  return highlighted ? static_cast<double>(*highlighted) + 1 : 0;
}
}  // namespace ring_layers

}  // namespace rondora
