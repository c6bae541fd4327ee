#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

#include "base/uuid.h"

// Lists of the document whose elements have ids.

namespace rondora::editing {

template <class Element>
auto find(std::vector<Element>& elements, const Uuid& id) {
  return std::find_if(elements.begin(), elements.end(), [&id](const Element& each) { return each.id == id; });
}

/// Moves the element to that place, or to the end. False when there is none of this id.
template <class Element>
bool moveTo(std::vector<Element>& elements, const Uuid& id, std::size_t place) {
  const auto found = find(elements, id);
  if (found == elements.end()) return false;
  const auto target = elements.begin() + static_cast<std::ptrdiff_t>(std::min(place, elements.size() - 1));
  if (target < found) std::rotate(target, found, std::next(found));
  if (target > found) std::rotate(found, std::next(found), std::next(target));
  return true;
}

}  // namespace rondora::editing
