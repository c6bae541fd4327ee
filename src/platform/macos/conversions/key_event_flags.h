#pragma once

#include <cstdint>
#include <optional>

#include "platform/key_event.h"

namespace rondora::macos {

/// The modifiers that are held, by the system's flags of a key event: it marks the keys of the function row, of the
/// cursor and of editing with Fn, whether Fn is held or not. Locks and device-dependent bits are left out. No key code
/// for flags that belong to no key.
std::uint64_t heldModifiers(std::uint64_t flags, std::optional<std::uint16_t> keyCode);

/// Whether Fn is held, by the changes of modifiers that an event tap reports: the marks of keys do not tell.
class HeldFn {
 public:
  /// The event's flags; those of a press or release of a marked key have Fn while it is held and only then.
  std::uint64_t flagsOf(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags);

 private:
  bool isHeld_ = false;
};

}  // namespace rondora::macos
