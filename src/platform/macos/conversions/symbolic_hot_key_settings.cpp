#include "platform/macos/conversions/symbolic_hot_key_settings.h"

#include <string>

namespace rondora::macos {
namespace {

std::optional<std::vector<std::int64_t>> integers(const PropertyList* list) {
  const auto* items = list == nullptr ? nullptr : list->as<PropertyList::Array>();
  if (items == nullptr) return std::nullopt;
  std::vector<std::int64_t> values;
  for (const PropertyList& item : *items) {
    const auto value = integerOf(&item);
    if (!value) return std::nullopt;
    values.push_back(*value);
  }
  return values;
}

}  // namespace

std::optional<SymbolicHotKey> symbolicHotKey(const PropertyList& settings, int number) {
  const PropertyList* entry = settings.find(std::to_string(number));
  if (entry == nullptr) return std::nullopt;
  const PropertyList* value = entry->find("value");
  return SymbolicHotKey{booleanOf(entry->find("enabled")),
                        integers(value == nullptr ? nullptr : value->find("parameters"))};
}

}  // namespace rondora::macos
