#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "input/hotkeys/hotkey_hid_tap.h"
#include "model/hotkey_config.h"
#include "model/pie_menu.h"
#include "platform/hotkey_service.h"
#include "platform/log.h"

namespace rondora {

/// Makes the hotkeys of the menus system-wide triggers and reports which menus were triggered. Main thread.
class HotkeyManager {
 public:
  /// Indices into the menus of the last `registerAll`, valid during the call. The callback must not call `registerAll`.
  using MenuIndices = std::span<const std::uint32_t>;

  struct Registration {
    HotkeyConfig hotkey;
    std::vector<std::uint32_t> menuIndices;
    Subscription reference;
  };

  /// The open ring, for hotkeys that are pressed while it is shown.
  struct Ring {
    /// The ring shows one of these menus.
    std::function<bool(MenuIndices)> showsOneOf;
    /// The key chooses an item of the ring.
    std::function<bool(const KeyEvent&)> quickSelects;
  };

  HotkeyManager(HotkeyService& service, const HotkeyHIDTap::Ports& tapPorts);
  ~HotkeyManager();
  HotkeyManager(const HotkeyManager&) = delete;
  HotkeyManager& operator=(const HotkeyManager&) = delete;

  std::function<void(MenuIndices, ModifierHold)> onHotkeyPressed;
  std::function<void(MenuIndices)> onHotkeyReleased;

  /// Replaces all registrations with those of `menus`.
  void registerAll(const std::vector<PieMenu>& menus);
  void unregisterAll();
  /// Registers those that are possible by now.
  void retryRefused();
  bool hasRefused() const { return !refused_.empty(); }
  /// Takes back keys of the event tap that another program has taken since.
  void retakeTapKeys() const;
  /// Hotkeys come before the ring's keys, except that a hotkey that is also a quick-select key in its own menu's ring
  /// selects.
  void followRing(Ring ring);

  /// Menus whose hotkey could not be registered.
  const std::vector<int>& failedRegistrationMenuIndices() const { return failedRegistrationMenuIndices_; }
  /// The keyboard's option that keeps the hotkey from being typed, if any.
  std::optional<std::string> optionAgainst(const HotkeyConfig& hotkey) const;
  /// Null before the first `registerAll`.
  const HotkeyHIDTap* hidTap() const { return hidTap_.get(); }

  /// The registration of exactly this combination, or null.
  const Registration* liveRegistration(std::int64_t keyCode, std::int64_t carbonModifiers) const;

 private:
  struct HotkeyEntry {
    int index = 0;
    HotkeyConfig hotkey;
  };
  struct Group {
    HotkeyConfig hotkey;
    std::vector<std::uint32_t> menuIndices;
  };

  void startTap(const std::vector<PieMenu>& menus);
  static std::vector<HotkeyEntry> collectEntries(const std::vector<PieMenu>& menus);
  static std::vector<Group> group(const std::vector<HotkeyEntry>& entries);
  bool registerGroup(Group& group);
  void listFailures();
  std::optional<Subscription> registerEventHotKey(const HotkeyConfig& hotkey, std::uint32_t id);
  void recordRegistration(bool ok, const HotkeyConfig& hotkey);
  int handleHotKeyEvent(const HotKeyEvent* event);
  void pressed(MenuIndices indices, ModifierHold modifiers) const;
  void released(MenuIndices indices) const;
  MenuIndices menusOf(const EventHotKeyID& id) const;

  HotkeyService& service_;
  HotkeyHIDTap::Ports tapPorts_;
  Log& log_;
  std::vector<Group> refused_;
  std::vector<int> failedRegistrationMenuIndices_;
  /// Live registrations by hot-key id, which is the index of the first menu.
  std::map<std::uint32_t, Registration> registrations_;
  Subscription handler_;
  std::unique_ptr<HotkeyHIDTap> hidTap_;
  WeakSelf<HotkeyManager> weakSelf_{this};
};

}  // namespace rondora
