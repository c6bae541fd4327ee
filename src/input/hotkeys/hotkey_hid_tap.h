#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "input/hotkeys/native_app_switcher.h"
#include "model/hotkey_config.h"
#include "model/pie_menu.h"
#include "platform/event_monitors.h"
#include "platform/event_taps.h"
#include "platform/hotkey_service.h"
#include "platform/log.h"
#include "platform/main_queue.h"
#include "platform/secure_input.h"

namespace rondora {

/// Serves the hotkeys that the system's hot-key service cannot, with an event tap: Fn alone, combinations with Fn, and
/// those that the system's own application switcher takes first. While it owns those, it suspends that switcher. Main
/// thread.
class HotkeyHIDTap {
 public:
  struct Binding {
    HotkeyConfig hotkey;
    std::vector<std::uint32_t> indices;
    bool isStandaloneFn = false;
    friend bool operator==(const Binding&, const Binding&) = default;
  };
  using PressCallback = std::function<void(std::span<const std::uint32_t>, ModifierHold)>;
  using ReleaseCallback = std::function<void(std::span<const std::uint32_t>)>;

  /// All must outlive the tap.
  struct Ports {
    EventTaps& eventTaps;
    SecureInput& secureInput;
    const EventMonitors& eventMonitors;
    NativeAppSwitcher& switcher;
    MainQueue& mainQueue;
    Log& log;
  };

  static constexpr double kSecureInputInterval = 1.0;  // seconds

  explicit HotkeyHIDTap(const Ports& ports) : ports_(ports) {}
  ~HotkeyHIDTap() { stop(); }
  HotkeyHIDTap(const HotkeyHIDTap&) = delete;
  HotkeyHIDTap& operator=(const HotkeyHIDTap&) = delete;

  /// Called on a later turn of the main queue with indices into the menus of `start`, for each press, repeats included,
  /// and each release.
  PressCallback onPressed;
  ReleaseCallback onReleased;

  void start(const std::vector<PieMenu>& menus);
  /// Gives the system's switcher its keys back.
  void stop();

  /// True when the hotkey needs this tap, alone or beside the hot-key service.
  static bool serves(const HotkeyConfig& hotkey);
  static bool requiresAccessibility(const std::vector<PieMenu>& menus);

  /// True once the event tap exists.
  bool hasPort() const { return port_ != nullptr; }
  /// True when the system lists a live tap of this process that receives keys.
  bool deliversKeyEvents() const;
  /// As `deliversKeyEvents`, for one bound hotkey.
  bool delivers(const HotkeyConfig& hotkey) const;
  /// Takes back bound keys that another program has taken since.
  void retakeKeys() const;

  const std::vector<Binding>& bindings() const { return bindings_; }
  bool carbonBacksUpCommandTab() const { return carbonBacksUpCommandTab_; }
  /// The hot-key service has registered a hotkey like ⌘Tab too.
  void setCarbonBacksUpCommandTab(bool backsUp);
  bool claimsCommandTab() const { return claimsCommandTab_; }
  bool claimsCommandShiftTab() const { return claimsCommandShiftTab_; }

  /// The event tap's callback. Allocates nothing and logs nothing when no binding matches.
  TapVerdict handleEvent(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags);
  /// One tick of the secure-input watch.
  void watchSecureInput();

 private:
  void bind(const HotkeyConfig& hotkey, std::uint32_t index);
  bool hasBinding(const HotkeyConfig& hotkey) const;
  bool createPort();
  void startSecureInputWatch();
  void applySwitcherRule();
  TapVerdict handleKey(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags);
  TapVerdict handleFlags(std::int64_t keyCode, std::uint64_t flags);
  bool hasStandaloneFn() const;
  std::vector<std::uint32_t> standaloneFnIndices() const;
  void dispatchPressed(std::vector<std::uint32_t> indices, ModifierHold modifiers);
  void dispatchReleased(std::vector<std::uint32_t> indices);

  Ports ports_;
  std::vector<Binding> bindings_;
  std::unique_ptr<EventTap> port_;
  Subscription runLoopSource_;
  bool standaloneFnDown_ = false;
  bool carbonBacksUpCommandTab_ = false;
  bool claimsCommandTab_ = false;
  bool claimsCommandShiftTab_ = false;
  bool secureInputActive_ = false;
  Subscription secureInputTimer_;
  WeakSelf<HotkeyHIDTap> weakSelf_{this};
};

}  // namespace rondora
