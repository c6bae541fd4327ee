#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
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

/// An element of another application's interface: the application, a window or a menu item. Calls return nothing and
/// fail while the application hangs and after it has ended. Used on the thread that made it.
class AXElement {
 public:
  virtual ~AXElement() = default;

  /// Timeout in seconds of each call below; 0 for the system's own.
  virtual void setMessagingTimeout(double seconds) = 0;
  virtual std::optional<AXValue> attribute(std::string_view name) const = 0;
  /// Values of several attributes in one call, in the order of `names`; an attribute that the element lacks has none.
  /// Nothing when the call failed.
  virtual std::optional<std::vector<std::optional<AXValue>>> attributes(
      std::span<const std::string_view> names) const = 0;
  /// False also when the query fails.
  virtual bool isSettable(std::string_view name) const = 0;
  /// False on failure.
  virtual bool setAttribute(std::string_view name, const AXValue& value) = 0;
  virtual bool perform(std::string_view action) = 0;
  /// Window-server number of a window; 0 for any other element.
  virtual std::uint32_t windowNumber() const = 0;
};

/// Access to the interface elements of other applications. Each thread has its own instance.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  /// Null for one that cannot be asked from this thread.
  virtual AXElementRef application(std::int32_t processIdentifier) = 0;
  /// A window that is missing from the application's own list, by its number; null when there is none.
  virtual AXElementRef windowByRemoteToken(std::int32_t ownerPID, std::uint32_t number) = 0;
  /// These attributes of these elements are about to be read: a system that answers many requests at once fetches them
  /// together, in at most `seconds`. Changes no result but its time.
  virtual void prepareToRead(std::span<const AXElementRef> /*elements*/,
                             std::span<const std::string_view> /*attributes*/, double /*seconds*/) {}
};

/// The attribute's value; nothing when it is missing or of another type.
template <class T>
std::optional<T> attributeOf(const AXElement& element, std::string_view name) {
  auto value = element.attribute(name);
  if (!value) return std::nullopt;
  if (T* typed = std::get_if<T>(&*value)) return std::move(*typed);
  return std::nullopt;
}

}  // namespace rondora
