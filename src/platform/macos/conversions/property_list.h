#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace rondora::macos {

/// A value of the system's dictionaries as plain data. What has none of these types holds nothing.
struct PropertyList {
  struct Entry;
  using Array = std::vector<PropertyList>;
  using Dictionary = std::vector<Entry>;

  std::variant<std::monostate, bool, std::int64_t, double, std::string, Array, Dictionary> value;

  template <class T>
  const T* as() const {
    return std::get_if<T>(&value);
  }
  /// The value of a key; null when there is none, or this is no dictionary.
  const PropertyList* find(std::string_view key) const;
  friend bool operator==(const PropertyList&, const PropertyList&) = default;
};

struct PropertyList::Entry {
  std::string key;
  PropertyList value;
  friend bool operator==(const Entry&, const Entry&) = default;
};

// The system takes numbers that mean the same for each other; so do these. Nothing for null and other types.
std::optional<bool> booleanOf(const PropertyList* list);
std::optional<std::int64_t> integerOf(const PropertyList* list);
std::optional<double> numberOf(const PropertyList* list);

/// An integer that fits the type.
template <class Integer>
std::optional<Integer> integerOf(const PropertyList* list) {
  const auto value = integerOf(list);
  if (!value || !std::in_range<Integer>(*value)) return std::nullopt;
  return static_cast<Integer>(*value);
}

}  // namespace rondora::macos
