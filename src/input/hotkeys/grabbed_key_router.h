#pragma once

#include <functional>

#include "input/hotkeys/hotkey_manager.h"
#include "platform/key_event.h"

namespace rondora {

/// Hot keys while the overlay holds the keyboard, when the system's hot-key service sees no key at all: every key event
/// comes here first. Repeats of a held hot key, the one that opened the menu included, end here. Main thread.
class GrabbedKeyRouter {
 public:
  struct Overlay {
    /// The menu on screen is one of these.
    std::function<bool(HotkeyManager::MenuIndices)> showsOneOf;
    /// The key would choose an item of the menu on screen.
    std::function<bool(const KeyEvent&)> quickSelects;
  };

  GrabbedKeyRouter(HotkeyManager& manager, Overlay overlay) : manager_(manager), overlay_(std::move(overlay)) {}

  /// True when the event was consumed.
  bool offer(const KeyEvent& event);

 private:
  bool offerKeyDown(const KeyEvent& event);

  HotkeyManager& manager_;
  Overlay overlay_;
};

}  // namespace rondora
