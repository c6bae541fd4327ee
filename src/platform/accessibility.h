#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/geometry.h"

namespace rondora {

class AXElement;
using AXElementRef = std::shared_ptr<AXElement>;
using AXValue =
    std::variant<bool, std::int64_t, double, std::string, Point, Size, AXElementRef, std::vector<AXElementRef>>;

/// A part of another application's interface: the application, a window, a menu item. The application may hang or end
/// at any time; then nothing is answered. Used on the one thread that made it.
class AXElement {
 public:
  virtual ~AXElement() = default;

  /// The longest time in seconds that one of the calls below waits for the application.
  virtual void setMessagingTimeout(double seconds) = 0;
  virtual std::optional<AXValue> attribute(std::string_view name) const = 0;
  /// False when the application did not do it.
  virtual bool setAttribute(std::string_view name, const AXValue& value) = 0;
  virtual bool perform(std::string_view action) = 0;
  /// The window server's number of a window; 0 when it has none.
  virtual std::uint32_t windowNumber() const = 0;
};

/// Reaches into the interface of other applications. Every thread has its own.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  virtual AXElementRef application(std::int32_t processIdentifier) = 0;
  /// A window that the application does not list itself, found by its number; null when there is none.
  virtual AXElementRef windowByRemoteToken(std::int32_t ownerPID, std::uint32_t number) = 0;
};

/// The value of an attribute if it is there and of that type.
template <class T>
std::optional<T> attributeOf(const AXElement& element, std::string_view name) {
  auto value = element.attribute(name);
  if (!value) return std::nullopt;
  if (T* typed = std::get_if<T>(&*value)) return std::move(*typed);
  return std::nullopt;
}

}  // namespace rondora
