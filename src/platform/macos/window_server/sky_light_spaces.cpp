#include "platform/macos/window_server/sky_light_spaces.h"

#include "platform/macos/conversions/display_spaces.h"
#include "platform/macos/foundation/cf_values.h"
#include "platform/macos/foundation/private_library.h"
#include "platform/macos/window_server/sky_light.h"

namespace rondora::macos {
namespace {

/// The user's spaces, whether they are shown or not.
constexpr int kAllSpaces = 7;

CFRef<CFArrayRef> arrayOf(std::uint32_t window) {
  const auto value = static_cast<std::int64_t>(window);
  const auto number = CFRef<CFNumberRef>::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &value));
  const void* items[] = {number.get()};
  return CFRef<CFArrayRef>::adopt(CFArrayCreate(kCFAllocatorDefault, items, 1, &kCFTypeArrayCallBacks));
}

}  // namespace

SkyLightSpaces::SkyLightSpaces() {
  const PrivateLibrary library(kSkyLightPath);
  mainConnectionID_ = library.function<MainConnectionID>("SLSMainConnectionID");
  copySpacesForWindows_ = library.function<CopySpacesForWindows>("SLSCopySpacesForWindows");
  copyManagedDisplaySpaces_ = library.function<CopyManagedDisplaySpaces>("SLSCopyManagedDisplaySpaces");
}

std::optional<std::vector<std::uint64_t>> SkyLightSpaces::spacesForWindow(std::uint32_t window) const {
  if (mainConnectionID_ == nullptr || copySpacesForWindows_ == nullptr) return std::nullopt;
  const auto windows = arrayOf(window);
  const auto answer = CFRef<CFArrayRef>::adopt(copySpacesForWindows_(mainConnectionID_(), kAllSpaces, windows.get()));
  const PropertyList list = propertyListOf(answer.get());
  const auto* items = list.as<PropertyList::Array>();
  if (items == nullptr) return std::nullopt;
  std::vector<std::uint64_t> spaces;
  for (const PropertyList& item : *items) {
    if (const auto space = integerOf<std::uint64_t>(&item)) spaces.push_back(*space);
  }
  return spaces;
}

std::optional<std::vector<DisplaySpaces>> SkyLightSpaces::managedDisplaySpaces() const {
  if (mainConnectionID_ == nullptr || copyManagedDisplaySpaces_ == nullptr) return std::nullopt;
  const auto displays = CFRef<CFArrayRef>::adopt(copyManagedDisplaySpaces_(mainConnectionID_()));
  if (!displays) return std::nullopt;
  return displaySpaces(propertyListOf(displays.get()));
}

}  // namespace rondora::macos
