#pragma once

#include <optional>

namespace rondora {

/// The value of a key in a map; nothing when the key is missing.
template <class Map, class Key>
std::optional<typename Map::mapped_type> valueAt(const Map& map, const Key& key) {
  const auto found = map.find(key);
  return found == map.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace rondora
