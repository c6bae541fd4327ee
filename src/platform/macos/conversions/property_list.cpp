#include "platform/macos/conversions/property_list.h"

#include <algorithm>
#include <cmath>

namespace rondora::macos {
namespace {

/// The first double that no std::int64_t reaches.
constexpr double kIntegerLimit = 0x1p63;

}  // namespace

const PropertyList* PropertyList::find(std::string_view key) const {
  const auto* entries = as<Dictionary>();
  if (entries == nullptr) return nullptr;
  const auto found =
      std::find_if(entries->begin(), entries->end(), [&](const Entry& entry) { return entry.key == key; });
  return found == entries->end() ? nullptr : &found->value;
}

std::optional<bool> booleanOf(const PropertyList* list) {
  if (list == nullptr) return std::nullopt;
  if (const auto* boolean = list->as<bool>()) return *boolean;
  const auto integer = integerOf(list);
  if (integer != 0 && integer != 1) return std::nullopt;
  return integer == 1;
}

std::optional<std::int64_t> integerOf(const PropertyList* list) {
  if (list == nullptr) return std::nullopt;
  if (const auto* integer = list->as<std::int64_t>()) return *integer;
  const auto* real = list->as<double>();
  if (real == nullptr || std::trunc(*real) != *real || *real < -kIntegerLimit || *real >= kIntegerLimit) {
    return std::nullopt;
  }
  return static_cast<std::int64_t>(*real);
}

std::optional<double> numberOf(const PropertyList* list) {
  if (list == nullptr) return std::nullopt;
  if (const auto* real = list->as<double>()) return *real;
  if (const auto* integer = list->as<std::int64_t>()) return static_cast<double>(*integer);
  return std::nullopt;
}

}  // namespace rondora::macos
