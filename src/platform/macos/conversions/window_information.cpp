#include "platform/macos/conversions/window_information.h"

namespace rondora::macos {
namespace {

// The values of kCGWindowOwnerPID, kCGWindowLayer, kCGWindowNumber, kCGWindowAlpha and kCGWindowBounds.
constexpr std::string_view kOwnerPID = "kCGWindowOwnerPID";
constexpr std::string_view kLayer = "kCGWindowLayer";
constexpr std::string_view kNumber = "kCGWindowNumber";
constexpr std::string_view kAlpha = "kCGWindowAlpha";
constexpr std::string_view kBounds = "kCGWindowBounds";

WindowListEntry::Alpha alphaOf(const PropertyList* list) {
  if (list == nullptr) return std::monostate();
  if (const auto number = numberOf(list)) return *number;
  return WindowListEntry::Malformed();
}

std::optional<Rect> rectOf(const PropertyList* list) {
  if (list == nullptr) return std::nullopt;
  const auto x = numberOf(list->find("X"));
  const auto y = numberOf(list->find("Y"));
  const auto width = numberOf(list->find("Width"));
  const auto height = numberOf(list->find("Height"));
  if (!x || !y || !width || !height) return std::nullopt;
  return Rect{{*x, *y}, {*width, *height}};
}

}  // namespace

WindowListEntry windowListEntry(const PropertyList& information) {
  return {.ownerPID = integerOf<std::int32_t>(information.find(kOwnerPID)),
          .layer = integerOf(information.find(kLayer)),
          .number = integerOf<std::uint32_t>(information.find(kNumber)),
          .alpha = alphaOf(information.find(kAlpha)),
          .bounds = rectOf(information.find(kBounds))};
}

}  // namespace rondora::macos
