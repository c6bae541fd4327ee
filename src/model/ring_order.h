#pragma once

#include <algorithm>
#include <vector>

#include "model/pie_menu_item.h"

namespace rondora {

/// The items as the ring shows them: by `sectorIndex`, equal ones in the order of the list.
inline std::vector<PieMenuItem> inRingOrder(std::vector<PieMenuItem> items) {
  std::stable_sort(items.begin(), items.end(),
                   [](const PieMenuItem& a, const PieMenuItem& b) { return a.sectorIndex < b.sectorIndex; });
  return items;
}

}  // namespace rondora
