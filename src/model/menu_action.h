#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace rondora {

enum class MacOSSystemActionKind {
  missionControl,
  applicationWindows,
  quickNote,
  startScreenSaver,
  displaySleep,
  lockScreen,
};

std::string_view rawValue(MacOSSystemActionKind kind);
std::optional<MacOSSystemActionKind> systemActionFromRawValue(std::string_view raw);
/// The kinds that have an effect.
inline constexpr std::array<MacOSSystemActionKind, 2> kAppStoreSystemActions = {
    MacOSSystemActionKind::missionControl, MacOSSystemActionKind::startScreenSaver};

struct Unassigned {
  friend bool operator==(const Unassigned&, const Unassigned&) = default;
};
struct LaunchApp {
  std::string bundleIdentifier;
  friend bool operator==(const LaunchApp&, const LaunchApp&) = default;
};
struct OpenURL {
  std::string url;  // as typed
  friend bool operator==(const OpenURL&, const OpenURL&) = default;
};
struct Keystroke {
  std::int64_t keyCode = 0;
  std::int64_t modifiers = 0;  // event flags
  friend bool operator==(const Keystroke&, const Keystroke&) = default;
};
struct SystemShortcut {
  MacOSSystemActionKind kind = MacOSSystemActionKind::missionControl;
  friend bool operator==(const SystemShortcut&, const SystemShortcut&) = default;
};
struct Snippet {
  std::string text;
  friend bool operator==(const Snippet&, const Snippet&) = default;
};

/// What an item does.
using MenuAction = std::variant<Unassigned, LaunchApp, OpenURL, Keystroke, SystemShortcut, Snippet>;

}  // namespace rondora
