#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/key_event_poster.h"
#include "platform/log.h"
#include "platform/spaces.h"
#include "platform/symbolic_hot_keys.h"

namespace rondora {

/// The system's own shortcuts that move one space to the side; the values are their numbers in its settings.
enum class SpaceShortcut { left = 79, right = 81 };

/// Switches to the space of a window by the system's own shortcuts. Any thread, one at a time.
class SpaceSwitcher {
 public:
  struct KeyCombination {
    std::uint16_t keyCode = 0;
    std::uint64_t flags = 0;  // event flags
    friend bool operator==(const KeyCombination&, const KeyCombination&) = default;
  };

  /// The references must outlive the object.
  struct Ports {
    Spaces& spaces;
    SymbolicHotKeys& symbolicHotKeys;
    KeyEventPoster& keyEvents;
    Clock& clock;
    Log& log;
  };

  explicit SpaceSwitcher(const Ports& ports) : ports_(ports) {}

  /// Presses the shortcut once for each space on the way, 60 ms apart; blocks for that time.
  void switchSpaceWithSystemShortcut(std::uint32_t window, const std::string& bundleID);
  /// The number of spaces to the right, negative for the left; nothing when unknown.
  std::optional<std::int64_t> spaceSteps(std::uint32_t window) const;
  /// Nothing when the user has switched the shortcut off.
  std::optional<KeyCombination> configuredKey(SpaceShortcut shortcut) const;

 private:
  void press(const KeyCombination& key);
  void post(const KeyCombination& key, bool isDown);

  Ports ports_;
};

}  // namespace rondora
