#pragma once

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "base/geometry.h"

namespace rondora {

/// A window as the window server reports it. A field without a value was missing or malformed.
struct WindowListEntry {
  /// Opacity: missing, malformed (not a number), or the number.
  struct Malformed {
    friend bool operator==(const Malformed&, const Malformed&) = default;
  };
  using Alpha = std::variant<std::monostate, Malformed, double>;

  std::optional<std::int32_t> ownerPID;
  std::optional<std::int64_t> layer;  // 0 for ordinary windows
  std::optional<std::uint32_t> number;
  Alpha alpha;
  std::optional<Rect> bounds;  // points
};

class WindowList {
 public:
  virtual ~WindowList() = default;

  /// The windows of all applications on all spaces, front to back, without desktop elements.
  virtual std::vector<WindowListEntry> windows() const = 0;
};

}  // namespace rondora
