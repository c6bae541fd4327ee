#include "platform/macos/accessibility/ax_ui_element.h"

#include "platform/macos/accessibility/ax_values.h"
#include "platform/macos/accessibility/private_accessibility.h"
#include "platform/macos/foundation/cf_values.h"

namespace rondora::macos {
namespace {

/// A missing value does not end the reading of the others: an error takes its place.
constexpr AXCopyMultipleAttributeOptions kReadAll = 0;

}  // namespace

void AXUIElement::setMessagingTimeout(double seconds) {
  AXUIElementSetMessagingTimeout(element_.get(), static_cast<float>(seconds));
}

std::optional<AXValue> AXUIElement::attribute(std::string_view name) const {
  CFTypeRef value = nullptr;
  const AXError error = AXUIElementCopyAttributeValue(element_.get(), makeString(name).get(), &value);
  const auto owner = CFRef<CFTypeRef>::adopt(value);
  return error == kAXErrorSuccess ? valueOf(value) : std::nullopt;
}

std::optional<std::vector<std::optional<AXValue>>> AXUIElement::attributes(
    std::span<const std::string_view> names) const {
  std::vector<CFRef<CFStringRef>> texts;
  for (const std::string_view name : names) texts.push_back(makeString(name));
  CFArrayRef values = nullptr;
  const AXError error =
      AXUIElementCopyMultipleAttributeValues(element_.get(), makeArray(texts).get(), kReadAll, &values);
  const auto owner = CFRef<CFArrayRef>::adopt(values);
  if (error != kAXErrorSuccess || values == nullptr) return std::nullopt;
  std::vector<std::optional<AXValue>> result;
  const CFIndex count = CFArrayGetCount(values);
  for (CFIndex i = 0; i < count; ++i) result.push_back(valueOf(CFArrayGetValueAtIndex(values, i)));
  return result;
}

bool AXUIElement::isSettable(std::string_view name) const {
  Boolean settable = false;
  return AXUIElementIsAttributeSettable(element_.get(), makeString(name).get(), &settable) == kAXErrorSuccess &&
         settable;
}

bool AXUIElement::setAttribute(std::string_view name, const AXValue& value) {
  const auto object = systemValueOf(value);
  return object &&
         AXUIElementSetAttributeValue(element_.get(), makeString(name).get(), object.get()) == kAXErrorSuccess;
}

bool AXUIElement::perform(std::string_view action) {
  return AXUIElementPerformAction(element_.get(), makeString(action).get()) == kAXErrorSuccess;
}

std::uint32_t AXUIElement::windowNumber() const { return windowNumberOf(element_.get()); }

}  // namespace rondora::macos
