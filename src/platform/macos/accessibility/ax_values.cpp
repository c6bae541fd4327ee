#include "platform/macos/accessibility/ax_values.h"

#include <memory>
#include <vector>

#include "platform/macos/accessibility/ax_ui_element.h"
#include "platform/macos/foundation/cf_values.h"

namespace rondora::macos {
namespace {

AXElementRef elementOf(AXUIElementRef element) {
  return std::make_shared<AXUIElement>(CFRef<AXUIElementRef>::share(element));
}

/// Nothing when one of them is no element.
std::optional<AXValue> elementsOf(CFArrayRef array) {
  std::vector<AXElementRef> elements;
  const CFIndex count = CFArrayGetCount(array);
  elements.reserve(static_cast<std::size_t>(count));
  for (CFIndex i = 0; i < count; ++i) {
    const auto element = castTo<AXUIElementRef>(CFArrayGetValueAtIndex(array, i), AXUIElementGetTypeID());
    if (element == nullptr) return std::nullopt;
    elements.push_back(elementOf(element));
  }
  return elements;
}

std::optional<AXValue> numberOf(CFNumberRef number) {
  const PropertyList list = propertyListOf(number);
  if (const auto* real = list.as<double>()) return *real;
  return integerOf(&list);
}

std::optional<AXValue> geometryOf(AXValueRef value) {
  CGPoint point{};
  CGSize size{};
  if (AXValueGetValue(value, kAXValueTypeCGPoint, &point)) return Point{point.x, point.y};
  if (AXValueGetValue(value, kAXValueTypeCGSize, &size)) return Size{size.width, size.height};
  return std::nullopt;
}

struct SystemValue {
  CFRef<CFTypeRef> operator()(bool value) const {
    return CFRef<CFTypeRef>::share(value ? kCFBooleanTrue : kCFBooleanFalse);
  }
  CFRef<CFTypeRef> operator()(std::int64_t value) const {
    return CFRef<CFTypeRef>::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &value));
  }
  CFRef<CFTypeRef> operator()(double value) const {
    return CFRef<CFTypeRef>::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberFloat64Type, &value));
  }
  CFRef<CFTypeRef> operator()(const std::string& value) const {
    return CFRef<CFTypeRef>::share(makeString(value).get());
  }
  CFRef<CFTypeRef> operator()(Point value) const {
    const CGPoint point{value.x, value.y};
    return CFRef<CFTypeRef>::adopt(AXValueCreate(kAXValueTypeCGPoint, &point));
  }
  CFRef<CFTypeRef> operator()(Size value) const {
    const CGSize size{value.width, value.height};
    return CFRef<CFTypeRef>::adopt(AXValueCreate(kAXValueTypeCGSize, &size));
  }
  CFRef<CFTypeRef> operator()(const AXElementRef& value) const {
    const auto* element = dynamic_cast<const AXUIElement*>(value.get());
    return element == nullptr ? CFRef<CFTypeRef>() : CFRef<CFTypeRef>::share(element->get());
  }
  CFRef<CFTypeRef> operator()(const std::vector<AXElementRef>& values) const {
    std::vector<CFRef<CFTypeRef>> objects;
    for (const AXElementRef& value : values) {
      objects.push_back((*this)(value));
      if (!objects.back()) return {};
    }
    return CFRef<CFTypeRef>::share(makeArray(objects).get());
  }
};

}  // namespace

std::optional<AXValue> valueOf(CFTypeRef object) {
  if (const auto text = castTo<CFStringRef>(object, CFStringGetTypeID())) return textOf(text);
  if (const auto boolean = castTo<CFBooleanRef>(object, CFBooleanGetTypeID())) return CFBooleanGetValue(boolean) != 0;
  if (const auto number = castTo<CFNumberRef>(object, CFNumberGetTypeID())) return numberOf(number);
  if (const auto element = castTo<AXUIElementRef>(object, AXUIElementGetTypeID())) return elementOf(element);
  if (const auto array = castTo<CFArrayRef>(object, CFArrayGetTypeID())) return elementsOf(array);
  if (const auto value = castTo<AXValueRef>(object, AXValueGetTypeID())) return geometryOf(value);
  return std::nullopt;
}

CFRef<CFTypeRef> systemValueOf(const AXValue& value) { return std::visit(SystemValue(), value); }

}  // namespace rondora::macos
