#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "model/hotkey_config.h"
#include "model/pie_menu.h"

namespace rondora {

/// Serves the hotkeys that the system's hot-key service cannot: Fn alone, combinations with Fn, and those that the
/// system's own application switcher takes first. Without an event-tap port it records its bindings and reports no
/// events. Main thread.
class HotkeyHIDTap {
 public:
  struct Binding {
    HotkeyConfig hotkey;
    std::vector<std::uint32_t> indices;
    bool isStandaloneFn = false;
    friend bool operator==(const Binding&, const Binding&) = default;
  };
  using Callback = std::function<void(std::span<const std::uint32_t>)>;

  HotkeyHIDTap() = default;
  ~HotkeyHIDTap() { stop(); }
  HotkeyHIDTap(const HotkeyHIDTap&) = delete;
  HotkeyHIDTap& operator=(const HotkeyHIDTap&) = delete;

  Callback onPressed;
  Callback onReleased;

  void start(const std::vector<PieMenu>& menus);
  void stop();

  /// True when the hotkey needs this tap, alone or beside the hot-key service.
  static bool serves(const HotkeyConfig& hotkey);
  static bool requiresAccessibility(const std::vector<PieMenu>& menus);

  /// True once the event tap exists.
  bool hasPort() const { return false; }
  /// False without a port.
  bool deliversKeyEvents() const { return hasPort(); }

  const std::vector<Binding>& bindings() const { return bindings_; }
  bool carbonBacksUpCommandTab() const { return carbonBacksUpCommandTab_; }
  void setCarbonBacksUpCommandTab(bool backsUp) { carbonBacksUpCommandTab_ = backsUp; }
  bool claimsCommandTab() const { return claimsCommandTab_; }
  bool claimsCommandShiftTab() const { return claimsCommandShiftTab_; }

 private:
  void bind(const HotkeyConfig& hotkey, std::uint32_t index);
  bool hasBinding(const HotkeyConfig& hotkey) const;

  std::vector<Binding> bindings_;
  bool carbonBacksUpCommandTab_ = false;
  bool claimsCommandTab_ = false;
  bool claimsCommandShiftTab_ = false;
};

}  // namespace rondora
