#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/hotkey_service.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"

namespace rondora::x11 {

/// Hot keys as passive grabs on the root window. While the overlay holds the keyboard, no passive grab activates, so
/// the service matches the overlay's keys instead.
class X11HotkeyService : public HotkeyService {
 public:
  X11HotkeyService(X11Connection& connection, X11Keymap& keymap, X11KeyStream& keys);
  ~X11HotkeyService() override;

  std::optional<Subscription> registerEventHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                                  EventHotKeyID id) override;
  std::optional<std::string> optionAgainst(std::uint32_t carbonModifiers) const override;
  Subscription onModifiersMoved(std::function<void()> observer) override;
  Subscription installEventHandler(Handler handler) override;
  void setOverlayRule(const OverlayRule& rule) override { overlayRule_ = rule; }

 private:
  struct Registration {
    std::uint64_t number = 0;
    xcb_keycode_t key = 0;
    std::uint32_t carbonModifiers = 0;
    EventHotKeyID id;
    /// Nothing while the keyboard lacks one of the modifiers, or another program has grabbed the combination.
    std::optional<std::uint16_t> xModifiers;
  };
  struct Combination {
    xcb_keycode_t key;
    std::uint16_t modifiers;
  };

  bool grab(Combination combination) const;
  void ungrab(Combination combination) const;
  void unregister(std::uint64_t number);
  bool isNeeded(Combination combination) const;
  bool handleKey(const X11Key& key);
  const Registration* liveRegistration(const X11Key& key) const;
  bool handlePress(const X11Key& key);
  bool handleRelease(const X11Key& key);
  template <class Visitor>
  void forEachRegistrationOf(xcb_keycode_t key, Visitor visit);
  void send(const HotKeyEvent& event);
  void followKeymap();

  X11Connection& connection_;
  X11Keymap& keymap_;
  X11KeyStream& keyStream_;
  std::vector<Registration> registrations_;
  std::uint64_t lastNumber_ = 0;
  /// The masks with which the current grabs were made.
  ModifierMasks grabbedMasks_;
  CallbackList<const HotKeyEvent*> handlers_;
  OverlayRule overlayRule_;
  Signal<> modifiersMoved_;
  Subscription keys_;
  Subscription keymapObserver_;
  WeakSelf<X11HotkeyService> weakSelf_{this};
};

}  // namespace rondora::x11
