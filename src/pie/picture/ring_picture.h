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

// The ring as a picture: the glass, one layer per sector with two states, and the hub's figure and title. A crowded
// ring, whose sectors are too many to tell apart, has plain wedges in the glass and one layer for the highlight.

namespace rondora {

struct RingContents {
  const std::vector<PieMenuItem>& items;
  /// One title per item, for the hub.
  const std::vector<std::string>& titles;
  const std::vector<std::optional<std::string>>& labels;
  HubContents hub = {};
  /// One per item: it cannot do what it is for. Items beyond the list are not dimmed.
  std::vector<bool> dimmed = {};
  /// One per item, beneath its title; may be empty. Items beyond the list have none.
  std::vector<std::string> notes = {};
};

Picture makeRingPicture(const PieMenu& menu, const RingLayout& layout, const RingContents& contents);

namespace ring_layers {
/// A sector of a usual ring is then narrower than three points.
inline constexpr std::size_t kMaxSectorLayers = 360;
constexpr bool isCrowded(std::size_t itemCount) { return itemCount > kMaxSectorLayers; }

inline constexpr std::size_t kBackdrop = 0;
/// Not of a crowded ring.
constexpr std::size_t sector(std::size_t index) { return index + 1; }
/// Of a crowded ring.
inline constexpr std::size_t kHighlight = 1;
constexpr std::size_t figure(std::size_t itemCount) { return isCrowded(itemCount) ? kHighlight + 1 : itemCount + 1; }
constexpr std::size_t title(std::size_t itemCount) { return figure(itemCount) + 1; }

inline constexpr double kNormal = 0;
inline constexpr double kHighlighted = 1;
/// The figure layer's state: alone, or above a title.
constexpr double figureState(std::optional<std::size_t> highlighted) { return highlighted ? 1 : 0; }
/// The state of the title layer, and of a crowded ring's highlight, for the highlighted item; state 0 is empty.
constexpr double titleState(std::optional<std::size_t> highlighted) {
  return highlighted ? static_cast<double>(*highlighted) + 1 : 0;
}
}  // namespace ring_layers

}  // namespace rondora
