#include "platform/macos/accessibility/ax_accessibility.h"

#include <unistd.h>

#include <memory>

#include "platform/ax_names.h"
#include "platform/macos/accessibility/ax_ui_element.h"
#include "platform/macos/accessibility/private_accessibility.h"

namespace rondora::macos {
namespace {

/// Applications number their elements as they make them, their windows early.
constexpr std::uint64_t kMaxElement = 1000;
constexpr double kSearchTime = 0.1;        // seconds
constexpr double kMessagingTimeout = 0.1;  // seconds, of an element that may not exist
constexpr double kSystemTimeout = 0;

bool isWindow(const AXElement& element) { return attributeOf<std::string>(element, ax::kRole) == ax::kWindow; }

}  // namespace

AXElementRef AXAccessibility::application(std::int32_t processIdentifier) {
  if (processIdentifier == getpid()) return nullptr;
  return std::make_shared<AXUIElement>(CFRef<AXUIElementRef>::adopt(AXUIElementCreateApplication(processIdentifier)));
}

// The elements of a window give its number too.
AXElementRef AXAccessibility::windowByRemoteToken(std::int32_t ownerPID, std::uint32_t number) {
  const double end = clock_.uptime() + kSearchTime;
  for (std::uint64_t i = 0; i < kMaxElement && clock_.uptime() < end; ++i) {
    auto candidate = elementForToken(remoteToken(ownerPID, i));
    if (!candidate) continue;
    const auto element = std::make_shared<AXUIElement>(std::move(candidate));
    element->setMessagingTimeout(kMessagingTimeout);
    if (element->windowNumber() != number || !isWindow(*element)) continue;
    element->setMessagingTimeout(kSystemTimeout);
    return element;
  }
  return nullptr;
}

}  // namespace rondora::macos
