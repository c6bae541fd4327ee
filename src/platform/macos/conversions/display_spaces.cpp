#include "platform/macos/conversions/display_spaces.h"

namespace rondora::macos {
namespace {

constexpr std::string_view kSpaces = "Spaces";
constexpr std::string_view kCurrentSpace = "Current Space";
constexpr std::string_view kManagedSpaceID = "ManagedSpaceID";

std::optional<std::uint64_t> identifierOf(const PropertyList* space) {
  return space == nullptr ? std::nullopt : integerOf<std::uint64_t>(space->find(kManagedSpaceID));
}

const PropertyList::Array& itemsOf(const PropertyList* list) {
  static const PropertyList::Array kNone;
  const auto* items = list == nullptr ? nullptr : list->as<PropertyList::Array>();
  return items == nullptr ? kNone : *items;
}

}  // namespace

std::vector<DisplaySpaces> displaySpaces(const PropertyList& displays) {
  std::vector<DisplaySpaces> result;
  for (const PropertyList& display : itemsOf(&displays)) {
    DisplaySpaces& spaces = result.emplace_back();
    for (const PropertyList& space : itemsOf(display.find(kSpaces))) spaces.spaces.push_back(identifierOf(&space));
    spaces.currentSpace = identifierOf(display.find(kCurrentSpace));
  }
  return result;
}

}  // namespace rondora::macos
